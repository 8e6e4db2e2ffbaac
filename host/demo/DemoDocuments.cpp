#include "host/demo/DemoDocuments.h"

#include <cstdint>
#include <string_view>

#include "host/demo/SamplePdf.h"
#include "host/server/Server.h"

namespace host {

namespace {

constexpr const char* Marker = "demo documents";
constexpr const char* Agent = "A101";

struct DemoDocument {
    std::int32_t listing;
    const char* description;
    const char* address;  ///< Null for a file.
};

constexpr DemoDocument DemoDocuments[] = {
    {100123, "Floor plan", nullptr},
    {100123, "Schools nearby", "https://www.example.org/schools?near=100123"},
    {100123, "Seller's disclosure", nullptr},
    {100126, "Floor plan", nullptr},
    {100126, "Flood map", "www.example.org/flood-map"},
    {100500, "Floor plan", nullptr},
    {500010, "House rules", nullptr},
};

std::string Pdf(const DemoDocument& document) {
    const std::string title = document.description, place = "Listing " + std::to_string(document.listing);
    SamplePdf pdf;
    if (title == "Floor plan") {
        pdf.AddFloorPlan(title, place);
    } else if (title == "House rules") {
        pdf.AddText(title, {place, "", "Quiet from 10 pm to 7 am.", "No smoking in the house.",
                            "Bicycles go in the shed.", "Bins are put out on Tuesdays."});
    } else {
        pdf.AddText(title,
                    {place, "", "Roof: renewed eleven years ago.", "Heating: gas, serviced each autumn.",
                     "Water: town supply.", "Known defects: the gate does not close by itself."});
        pdf.AddText("Included in the sale", {place, "", "Kitchen with its appliances", "Garden shed",
                                             "Curtains on the ground floor"});
    }
    return pdf.Bytes();
}

void Add(Server& server, const DocumentSender& sender, const DemoDocument& document, int number) {
    const std::string head = sender.userCode + "_" + sender.agent + std::to_string(document.listing) + "_" +
                             std::to_string(number);
    const std::string upload = document.address == nullptr ? head + "Doc.pdf" : "";
    if (!upload.empty()) {
        const std::string bytes = Pdf(document);
        server.Uploads().Begin(upload);
        server.Uploads().Append(std::as_bytes(std::span(bytes)));
        server.Uploads().End();
    }
    std::string command = "ADD|" + sender.userCode + "|" + sender.agent + "|" +
                          std::to_string(document.listing) + "|" + upload + "|" + document.description;
    if (upload.empty()) command += std::string("|") + document.address;
    server.ApplyDocument(command, sender);
}

/// A link of the kind that today's server refuses, as if it had been entered long ago.
void AddOldLink(Database& database) {
    database.Run(
        "INSERT INTO Documents (DocListNum, DocDesc, DocUrl) SELECT 100127, 'Survey on the office''s drive', "
        "'file:///office/surveys/100127.pdf' WHERE NOT EXISTS (SELECT 1 FROM Documents WHERE DocListNum = "
        "100127)");
}

}  // namespace

void SeedDocuments(Database& database, const std::string& dataFolder) {
    Statement marker(database, "SELECT 1 FROM Markers WHERE Name = ?");
    if (marker.Bind(1, Marker).Step()) return;
    marker.Finish();
    // Whatever a killed seeding has added before is not added twice: the server knows the commands.
    Server server(dataFolder);
    constexpr int Everywhere = 100;
    const DocumentSender sender{Server::UsualUserCode, Agent, Everywhere, {}, "", 1 << 20};
    int number = 0;
    for (const DemoDocument& document : DemoDocuments) Add(server, sender, document, ++number);
    AddOldLink(database);
    Statement(database, "INSERT OR IGNORE INTO Markers (Name) VALUES (?)").Bind(1, Marker).Finish();
}

}  // namespace host
