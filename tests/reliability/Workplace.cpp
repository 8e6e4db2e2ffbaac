#include "reliability/Workplace.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <ranges>

#include "base/Files.h"
#include "documents/frmPromptLinkText.h"
#include "host/database/Schema.h"
#include "platform_vips/Samples.h"

namespace lumarin::reliability {

namespace {

constexpr int Width = 120;
constexpr int Height = 75;
constexpr const char* BuiltDocument = "Plan";
constexpr const char* Settings =
    "[Lumarin]\r\nDocMaxSize=100\r\nPhoto Size=120,75,35,35000,4\r\nPhoto Maximum=8\r\nFilePreview=False\r\n";

/// Thousands of small folders come and go: in memory, where there is such a place and nobody chose another.
[[maybe_unused]] const bool inMemory = access("/dev/shm", W_OK) == 0 && setenv("TMPDIR", "/dev/shm", 0) == 0;

/// What the agent answers to a question that belongs to what he does.
std::optional<Answer> AnswerTo(const Message& message) {
    const std::pair<const char*, Answer> beginnings[] = {
        {"Do you really want to remove all the photos from listing - ", Answer::No},
        {"The changes to the photos of listing ", Answer::Yes},
        {"Preparing to delete document:", Answer::Yes},
        {"A document of ", Answer::Yes},
    };
    for (const auto& [beginning, answer] : beginnings)
        if (message.text.starts_with(beginning)) return answer;
    return std::nullopt;
}

/// Tells the bytes of one file from those of any other.
std::string Identity(const std::string& path) {
    if (!files::FileExists(path)) return "missing";
    const std::string bytes = files::ReadAll(path);
    return std::to_string(bytes.size()) + "/" + std::to_string(std::hash<std::string>()(bytes));
}

/// A built document may have come about in several batches: what counts are its pages.
int Pages(const std::string& path) {
    if (!files::FileExists(path)) return 0;
    const std::string bytes = files::ReadAll(path), mark = "/Subtype /Image";
    int count = 0;
    for (std::size_t at = bytes.find(mark); at != std::string::npos; at = bytes.find(mark, at + 1)) ++count;
    return count;
}

}  // namespace

LocalTime HastyClock::Now() const {
    ++minutes_;
    const int hours = minutes_ / 60, days = hours / 24;
    return {.year = 2026,
            .month = 1 + days / 28 % 12,
            .day = 1 + days % 28,
            .hour = hours % 24,
            .minute = minutes_ % 60};
}

std::string Workplace::Picture(int number) {
    static std::map<int, std::string> drawn;
    std::string& bytes = drawn[number];
    if (bytes.empty())
        bytes = samples::Encode(samples::Detailed(Width + 100, Height).crop(number, 0, Width, Height),
                                ".jpg[Q=95]");
    return bytes;
}

std::string Workplace::LargePicture() { return samples::Encode(samples::Detailed(400, 300), ".png"); }

void Workplace::Prepare(const std::string& dataFolder) {
    files::EnsureFolder(dataFolder + "city");
    files::WriteWhole(dataFolder + "city/CityInfo.ini", Settings);
    host::Database database(host::DatabasePath(dataFolder), host::DatabaseUse::Changes);
    host::EnsureSchema(database);
    for (const std::string number : Listings)
        database.Run("INSERT INTO Listings (ListNum, StreetName, ListAgentId) VALUES (" + number +
                     ", 'Elm', 'A101')");
}

Workplace::Workplace(const std::string& dataFolder) : folder(dataFolder), host({.dataFolder = dataFolder}) {
    link.Set(host.common);
    host.common.Faults().SetPatience(std::chrono::milliseconds(1));
    desktop.BeLenient([this](Form& form) { Play(form); },
                      [](const Message& message) { return AnswerTo(message).value_or(Answer::Cancel); });
}

/// What a person does in the windows that open by themselves.
void Workplace::Play(Form& form) {
    if (form.Name() == "frmPhotoCrop") {
        auto& crop = static_cast<frmPhotoCrop&>(form);
        crop.cmdCapture.Press();
        if (crop.IsShown()) crop.cmdCancel.Press();
    } else if (form.Name() == "frmListnumPrompt") {
        auto& prompt = static_cast<frmListnumPrompt&>(form);
        prompt.txtPropertyId.SetText(Listings[0]);
        prompt.cmdOK.Press();
    } else if (form.Name() == "frmPromptLinkText") {
        auto& prompt = static_cast<frmPromptLinkText&>(form);
        prompt.txtLinkText.SetText("Deed");
        prompt.txtUrl.SetText("http://example.org/deed");
        prompt.cmdOK.Press();
    } else if (form.Name() == "frmMakePDF") {
        PlayBuilder(static_cast<frmMakePDF&>(form));
    }
}

void Workplace::PlayBuilder(frmMakePDF& builder) {
    for (const int wanted : {1, 2}) {
        if (Pages(builder.PdfPath()) >= wanted) continue;
        desktop.Choose(CameraFile("page" + std::to_string(wanted) + ".jpg", Picture(wanted)));
        builder.cmdAddFiles.Press();
        pageBuilt();
    }
    builder.txtLinkText.SetText(BuiltDocument);
    if (Pages(builder.PdfPath()) == 2) builder.cmdOK.Press();
    if (builder.IsShown()) builder.Hide();
}

void Workplace::Open() {
    window.reset();
    try {
        auto opened =
            std::make_unique<frmLumarin>(PhotoWindowPorts{desktop, imaging, archiver, clock, link, engine});
        opened->Init(1);
        opened->Show(nullptr);
        window = std::move(opened);
    } catch (const Error& error) {
        desktop.messages.push_back({.text = error.Description(), .title = error.Source()});
    }
}

void Workplace::Load(const std::string& listing) {
    window->txtID.SetText(listing);
    window->cmdAdd.Press();
}

void Workplace::Select(const std::string& listing) {
    const int row = window->RecList.FindText(listing);
    if (row >= 0) window->RecList.Select(row);
}

std::string Workplace::CameraFile(const std::string& name, const std::string& bytes) const {
    std::string path = camera_.Path() + name;
    if (!files::FileExists(path)) files::WriteWhole(path, bytes);
    return path;
}

void Workplace::Add(int picture) {
    window->PhotoList.DropFiles({CameraFile(std::to_string(picture) + ".jpg", Picture(picture))});
}

void Workplace::AddLarge() { window->PhotoList.DropFiles({CameraFile("large.png", LargePicture())}); }

void Workplace::OpenDocuments() {
    documents.reset();
    documents =
        std::make_unique<frmAddDocument>(DocumentWindowPorts{desktop, imaging, pdf, clock, link, engine});
    documents->Init(2);
    documents->Show(nullptr);
}

void Workplace::AddPdf() {
    desktop.Choose(CameraFile("deed.pdf", "%PDF-1.4\n" + std::string(12'000, 'd')));
    documents->ActiveBar1.ClickTool("miAddExistingFile");
}

int Workplace::DraftPages() const { return Pages(host.common.UserFolder() + "CreatePDFTmp.pdf"); }

std::size_t Workplace::DraftFiles() const {
    const auto isDraft = [](const std::string& name) { return name.starts_with("CreatePDFTmp"); };
    return files::List(host.common.UserFolder(), isDraft).size();
}

std::vector<std::string> Workplace::Documents() {
    host::Database database(host::DatabasePath(folder), host::DatabaseUse::Queries);
    host::Statement rows(database,
                         "SELECT DocID, DocDesc, ifnull(DocUrl, ''), DocFilesize FROM Documents WHERE "
                         "DocListNum = 1001 ORDER BY DocID");
    std::vector<std::string> held;
    while (rows.Step()) {
        std::string entry = rows.Text(1) + "|" + rows.Text(2);
        if (rows.Text(2).empty()) {
            const std::string path = host.common.ListingServer().DocumentFile(1001, rows.Integer(0));
            EXPECT_EQ(files::FileLength(path), static_cast<std::uint64_t>(rows.Integer(3)));
            entry += "|" + (rows.Text(1) == BuiltDocument ? std::to_string(Pages(path)) + " pages"
                                                          : Identity(path));
        }
        held.push_back(entry);
    }
    return held;
}

std::size_t Workplace::Told() const {
    return static_cast<std::size_t>(
        std::ranges::count_if(desktop.messages, [](const Message& message) { return !AnswerTo(message); }));
}

Photos Workplace::Work() {
    Photos work;
    if (window == nullptr) return work;
    for (int row = 0; row < window->RecList.Count(); ++row) {
        const std::string listing = window->RecList.At(row).text;
        window->RecList.Select(row);
        std::vector<std::string>& photos = work[listing];
        for (int photo = 0; photo < window->PhotoList.Count(); ++photo) {
            const ListView::Row shown = window->PhotoList.At(photo);
            photos.push_back(shown.text + ":" + Identity(shown.picture));
        }
    }
    return work;
}

Photos Workplace::Published() {
    host::Database database(host::DatabasePath(folder), host::DatabaseUse::Queries);
    const auto descriptions = host.common.PhotoDescriptions();
    Photos published;
    for (const std::string listing : Listings) {
        const std::int32_t number = std::stoi(listing);
        const auto rows = host::PhotoStore::Published(database, number);
        if (rows.empty()) continue;
        const std::string stored = host::Server::PhotoFolder(folder) + listing + "/";
        for (const auto& row : rows) {
            const auto known = std::ranges::find(descriptions, row.code,
                                                 [](const auto& one) { return std::to_string(one.code); });
            EXPECT_EQ(files::FileLength(stored + row.fileName), row.bytes);
            published[listing].push_back((known == descriptions.end() ? row.code : known->text) + ":" +
                                         Identity(stored + row.fileName));
        }
    }
    return published;
}

std::string Workplace::LocalCopy(const std::string& listing, int photo) const {
    return Identity(host.common.PhotoFolder() + host::PhotoTree::NameOf(std::stoi(listing), photo));
}

Photos WorkOnDisk(const std::string& dataFolder) {
    const testing::TemporaryFolder copy;
    std::filesystem::copy(dataFolder, copy.Path(), std::filesystem::copy_options::recursive);
    Workplace next(copy.Path());
    next.Open();
    EXPECT_EQ(next.Told(), 0U) << next.LastMessage();
    return next.Work();
}

}  // namespace lumarin::reliability
