#include "PhotoWindowTest.h"

#include "base/Files.h"
#include "base/Text.h"

namespace lumarin::testing {

void FakeArchiver::Create(const std::string& archive, const std::vector<std::string>& files) {
    if (failure) throw *failure;
    packaged.clear();
    for (const std::string& file : files) {
        packaged.push_back(text::AfterLastSeparator(file));
        contents[packaged.back()] = files::ReadAll(file);
    }
    files::WriteWhole(archive, std::string(length, 'z'));
}

ScanOutcome FakeScanner::Acquire(const ScanOrder& wanted, const ScanEvents& events) {
    order = wanted;
    for (int page = 1; page <= (wanted.several ? pages : 1); ++page) {
        events.progress(page, 50);
        if (!events.whileWaiting()) return ScanOutcome::Cancelled;
        ++handedOver;
        const auto picture =
            std::make_shared<Picture>(Picture{160, 100, std::vector<std::uint8_t>(160 * 100 * 3)});
        if (events.pageArrived({picture, page, feeder}) == AfterPage::Stop) break;
    }
    if (failsAfterwards) throw ScannerError("The paper is jammed.");
    return ScanOutcome::Finished;
}

PhotoWindowTest::PhotoWindowTest() {
    link.Set(host);
    imaging.pictures["/in/a.png"] = imaging.pictures["/in/b.png"] = {1600, 1000, false};
    host.onQuery = [this](const std::string& sql) { return Answer(sql); };
}

void PhotoWindowTest::GivenListing(std::int32_t number, const std::vector<std::size_t>& lengths) {
    for (std::size_t i = 0; i < lengths.size(); ++i)
        host.Publish(number, static_cast<int>(i) + 1, lengths[i]);
    listings_[number] = lengths;
}

void PhotoWindowTest::Open() {
    window = std::make_unique<frmLumarin>(
        PhotoWindowPorts{desktop, imaging, archiver, clock, link, engine, &scanner});
    window->Init(7);
    window->Show(nullptr);
}

void PhotoWindowTest::Enter(const std::string& number) {
    window->txtID.SetText(number);
    window->txtID.PressKey(13);
}

void PhotoWindowTest::WillCapture(const std::vector<std::size_t>& lengths) {
    for (const std::size_t length : lengths) {
        imaging.captureLengths.push_back(length);
        desktop.Play("frmPhotoCrop", [](Form& form) { static_cast<frmPhotoCrop&>(form).cmdCapture.Press(); });
    }
}

std::set<std::string> PhotoWindowTest::WorkingFiles() const {
    const auto names = files::List(host.WorkingFolder(), [](const std::string&) { return true; });
    return {names.begin(), names.end()};
}

std::vector<std::string> PhotoWindowTest::ListTexts(const ListView& list) const {
    std::vector<std::string> texts;
    for (int row = 0; row < list.Count(); ++row) texts.push_back(list.At(row).text);
    return texts;
}

FakeTable PhotoWindowTest::Answer(const std::string& sql) const {
    const auto sizes = [](const std::vector<std::size_t>& lengths) {
        std::string list;
        for (const std::size_t length : lengths) list += (list.empty() ? "" : ",") + std::to_string(length);
        return FieldValue(list);
    };
    if (sql.rfind("SELECT PhoListNum", 0) == 0) {
        FakeTable versions{{"PhoListNum", "PhotoVersion"}, {}};
        for (const auto& [number, lengths] : listings_)
            if (!lengths.empty()) versions.rows.push_back({FieldValue(number), sizes(lengths)});
        return versions;
    }
    if (sql.find(" As SelectedId") != std::string::npos) return {};
    const std::int32_t number = std::stoi(sql.substr(sql.rfind(" = ") + 3));
    const auto found = listings_.find(number);
    FakeTable table{{"ListNum", "PhotoCount", "PhotoVersion", "PhotoDesc", "StreetNumber", "StreetName",
                     "StreetDirection", "ListAgentId"},
                    {}};
    if (found == listings_.end() || sql.find("From Listings") == std::string::npos) return table;
    table.rows.push_back({FieldValue(number), FieldValue(static_cast<std::int64_t>(found->second.size())),
                          sizes(found->second), FieldValue(), FieldValue(number % 100),
                          FieldValue(std::string("Elm St")), FieldValue(std::string("N")),
                          FieldValue(std::string("A101"))});
    return table;
}

}  // namespace lumarin::testing
