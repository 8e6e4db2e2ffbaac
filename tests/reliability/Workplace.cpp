#include "reliability/Workplace.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <ranges>

#include "base/Files.h"
#include "base/Text.h"
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

/// Thousands of small folders come and go: in memory, where there is room and nobody chose another place.
[[maybe_unused]] const bool inMemory = [] {
    std::error_code none;
    const bool hasRoom = std::filesystem::space("/dev/shm", none).available > 500'000'000 && !none;
    if (hasRoom && std::getenv("TMPDIR") == nullptr) testing::TemporaryFolder::Parent() = "/dev/shm";
    return hasRoom;
}();

/// What the agent answers to a question that belongs to the work at hand.
std::optional<Answer> AnswerTo(const Message& message) {
    const std::pair<const char*, Answer> beginnings[] = {
        {"Do you really want to remove all the photos from listing - ", Answer::No},
        {"Preparing to delete document:", Answer::Yes},
        {"A document of ", Answer::Yes},
    };
    for (const auto& [beginning, answer] : beginnings)
        if (message.text.starts_with(beginning)) return answer;
    return std::nullopt;
}

/// A built document may have come about in several batches: what counts are its pages.
int Pages(const std::string& path) {
    if (!files::FileExists(path)) return 0;
    const std::string bytes = files::ReadAll(path), mark = "/Subtype /Image";
    return static_cast<int>((bytes.size() - text::ReplaceAll(bytes, mark, "").size()) / mark.size());
}

}  // namespace

std::string Workplace::Identity(const std::string& path) {
    if (!files::FileExists(path)) return "missing";
    const std::string bytes = files::ReadAll(path);
    return std::to_string(bytes.size()) + "/" + std::to_string(std::hash<std::string>()(bytes));
}

std::string Workplace::Picture(int number) {
    static std::map<int, std::string> drawn;
    std::string& bytes = drawn[number];
    if (bytes.empty())
        bytes = samples::Encode(samples::Detailed(Width + 100, Height).crop(number, 0, Width, Height),
                                ".jpg[Q=95]");
    return bytes;
}

void Workplace::Prepare(const std::string& dataFolder) {
    files::EnsureFolder(dataFolder + "city");
    files::WriteWhole(dataFolder + "city/CityInfo.ini", Settings);
    AddListings(dataFolder, {std::begin(Listings), std::end(Listings)});
}

void Workplace::AddListings(const std::string& dataFolder, const std::vector<std::string>& numbers) {
    host::Database database(host::DatabasePath(dataFolder), host::DatabaseUse::Changes);
    host::EnsureSchema(database);
    for (const std::string& number : numbers)
        database.Run("INSERT INTO Listings (ListNum, StreetName, ListAgentId) VALUES (" + number +
                     ", 'Elm', 'A101')");
}

Workplace::Workplace(const std::string& dataFolder) : folder(dataFolder), host({.dataFolder = dataFolder}) {
    link.Set(host.common);
    desktop.BeLenient([this](Form& form) { Play(form); },
                      [](const Message& message) { return AnswerTo(message).value_or(Answer::Cancel); });
}

void Workplace::Play(Form& form) {
    if (auto* crop = dynamic_cast<frmPhotoCrop*>(&form)) {
        crop->cmdCapture.Press();
        if (crop->IsShown()) crop->cmdCancel.Press();
    } else if (auto* prompt = dynamic_cast<frmListnumPrompt*>(&form)) {
        prompt->txtPropertyId.SetText(documentsListing);
        prompt->cmdOK.Press();
    } else if (auto* typed = dynamic_cast<frmPromptLinkText*>(&form)) {
        if (!typed->txtUrl.Text().empty()) return typed->cmdCancel.Press();  // refused, and asked for again
        typed->txtLinkText.SetText(linkText);
        typed->txtUrl.SetText(linkAddress);
        typed->cmdOK.Press();
        if (typed->IsShown()) typed->cmdCancel.Press();
    } else if (auto* builder = dynamic_cast<frmMakePDF*>(&form)) {
        build(*builder);
    }
}

void Workplace::BuildTwoPages(frmMakePDF& builder) {
    for (const int wanted : {1, 2}) {
        if (builder.lbmBM.Count() >= wanted) continue;
        desktop.Choose(CameraFile("page" + std::to_string(wanted) + ".jpg", Picture(wanted)));
        builder.cmdAddFiles.Press();
        pageBuilt();
        if (wanted == 2) EditPages(builder);
    }
    builder.txtLinkText.SetText(BuiltDocument);
    if (builder.lbmBM.Count() == 2) builder.cmdOK.Press();
    if (builder.IsShown()) builder.Hide();
}

void Workplace::EditPages(frmMakePDF& builder) {
    for (const char* tool : {"MoveUp", "RotateLeft", "DeletePages", "undo"}) {
        builder.ActiveBar1.ClickTool(tool);
        pageBuilt();
    }
}

void Workplace::Open() {
    window.reset();
    try {
        auto opened = std::make_unique<frmLumarin>(PhotoWindowPorts{Ports(), archiver});
        opened->Init(1);
        opened->Show(nullptr);
        window = std::move(opened);
    } catch (const Error& error) {
        desktop.messages.push_back({.text = error.Description(), .title = error.Source()});
    }
}

std::string Workplace::CameraFile(const std::string& name, const std::string& bytes) const {
    std::string path = camera_.Path() + name;
    if (!files::FileExists(path)) files::WriteWhole(path, bytes);
    return path;
}

void Workplace::Add(int picture) {
    window->PhotoList.DropFiles({CameraFile(std::to_string(picture) + ".jpg", Picture(picture))});
}

void Workplace::AddLarge() {
    window->PhotoList.DropFiles(
        {CameraFile("large.png", samples::Encode(samples::Detailed(400, 300), ".png"))});
}

void Workplace::OpenDocuments() {
    documents.reset();
    documents = std::make_unique<frmAddDocument>(DocumentPorts{Ports(), pdf});
    documents->Init(2);
    documents->Show(nullptr);
}

std::vector<std::string> Workplace::DraftPages() const {
    std::vector<std::string> shown;
    const auto draft = PdfDraftFiles(host.common.UserFolder()).Read();
    if (!draft) return shown;
    for (const PageId id : draft->order)
        shown.push_back(draft->pages.at(id).source + "/" + std::to_string(draft->pages.at(id).quarters));
    return shown;
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

Photos Workplace::PublishedIn(const std::string& dataFolder) {
    host::Database database(host::DatabasePath(dataFolder), host::DatabaseUse::Queries);
    host::Statement rows(database,
                         "SELECT ListNum, ifnull(Description, ServerPhotos.Code), FileName, Bytes FROM "
                         "ServerPhotos LEFT JOIN PhotoDescriptions USING (Code) ORDER BY ListNum, Position");
    Photos published;
    while (rows.Step()) {
        const std::string path = host::Server::PhotoFolder(dataFolder) + rows.Text(0) + "/" + rows.Text(2);
        EXPECT_EQ(files::FileLength(path), static_cast<std::uint64_t>(rows.Integer(3)));
        published[rows.Text(0)].push_back(rows.Text(1) + ":" + Identity(path));
    }
    return published;
}

std::string Workplace::LocalCopy(const std::string& listing, int photo) const {
    return Identity(host.common.PhotoFolder() + host::PhotoTree::NameOf(std::stoi(listing), photo));
}

Photos WorkOnDisk(const std::string& dataFolder) {
    const FolderCopy copy(dataFolder);
    Workplace next(copy.Path());
    next.Open();
    EXPECT_EQ(next.Told(), 0U) << next.LastMessage();
    return next.Work();
}

}  // namespace lumarin::reliability
