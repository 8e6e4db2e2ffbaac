#include "support/PhotoWindowTest.h"

#include "base/Text.h"

namespace lumarin::testing {

ScanOutcome FakeScanner::Acquire(const ScanOrder& wanted, const ScanEvents& events) {
    order = wanted;
    const auto picture = std::make_shared<Picture>(Picture{160, 100, std::vector<std::uint8_t>(48000)});
    for (int page = 1; page <= (wanted.several ? pages : 1); ++page) {
        events.progress(page, 50);
        if (!events.whileWaiting()) return ScanOutcome::Cancelled;
        ++handedOver;
        if (events.pageArrived({picture, page, feeder}) == AfterPage::Stop) break;
    }
    if (failsAfterwards) throw ScannerError("The paper is jammed.");
    return ScanOutcome::Finished;
}

PhotoWindowTest::PhotoWindowTest() {
    imaging.pictures["/in/a.png"] = imaging.pictures["/in/b.png"] = {1600, 1000, false};
    host.onQuery = [this](const std::string& sql) { return Answered(sql); };
}

void PhotoWindowTest::GivenListing(std::int32_t number, const std::vector<std::size_t>& lengths,
                                   const std::string& descriptionCodes) {
    host.Publish(number, lengths);
    Listing& listing = listings_[number] = {lengths.size(), "", descriptionCodes};
    for (const std::size_t length : lengths)
        listing.sizes += (listing.sizes.empty() ? "" : ",") + std::to_string(length);
}

void PhotoWindowTest::Open() {
    window = std::make_unique<frmLumarin>(PhotoWindowPorts{Ports(&scanner), archiver});
    window->Init(7);
    window->Show(nullptr);
}

void PhotoWindowTest::Enter(const std::string& number) {
    window->txtID.SetText(number);
    window->txtID.PressKey(13);
}

void PhotoWindowTest::OpenWith(const std::vector<std::string>& numbers) {
    for (const std::string& number : numbers) listings_.try_emplace(std::stoi(number));
    Open();
    for (const std::string& number : numbers) Enter(number);
}

void PhotoWindowTest::WillCapture(const std::vector<std::size_t>& lengths) {
    for (const std::size_t length : lengths) {
        imaging.captureLengths.push_back(length);
        desktop.Play("frmPhotoCrop", [](frmPhotoCrop& crop) { crop.cmdCapture.Press(); });
    }
}

void PhotoWindowTest::GivenUnreadableWork(const std::string& number) {
    files::EnsureFolder(host.WorkingFolder());
    files::WriteWhole(host.WorkingFolder() + number + ".dat", "garbage");
    files::TryDelete(host.WorkingFolder() + number + ".jnl");
    files::WriteWhole(host.WorkingFolder() + number + "a.jpg", "precious");
    desktop.Expect("The work on some listings could not be taken up. Its files were left in the folder " +
                       host.WorkingFolder() + "\n\n" + number +
                       ".dat\nThe saved state of a listing cannot be read: it is cut short at byte 7" +
                       AskToSetAside,
                   Answer::No);
}

std::set<std::string> PhotoWindowTest::WorkingFiles() const {
    const auto names = files::List(host.WorkingFolder(), [](const std::string&) { return true; });
    return {names.begin(), names.end()};
}

PhotoWindowTest::Texts PhotoWindowTest::ListTexts(const ListView& list) {
    Texts texts;
    for (int row = 0; row < list.Count(); ++row) texts.push_back(list.At(row).text);
    return texts;
}

FakeTable PhotoWindowTest::Answered(const std::string& sql) const {
    if (sql.starts_with("SELECT PhoListNum")) {
        FakeTable versions{{"PhoListNum", "PhotoVersion"}, {}};
        for (const auto& [number, listing] : listings_)
            if (listing.count > 0) versions.rows.push_back({number, listing.sizes});
        return versions;
    }
    if (sql.find(" As SelectedId") != std::string::npos) return {};
    const auto found = listings_.find(std::stoi(sql.substr(sql.rfind(" = ") + 3)));
    if (found == listings_.end()) return {};
    const auto& [number, listing] = *found;
    return {{"ListNum", "PhotoCount", "PhotoVersion", "PhotoDesc", "StreetNumber", "StreetName",
             "StreetDirection", "ListOfficeId", "ListAgentId", "BoardId"},
            {{number, listing.count, listing.sizes, listing.codes, number % 100, "Elm St", "N", "OF1", "A101",
              "1"}}};
}

}  // namespace lumarin::testing
