#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <sstream>

#include "base/Files.h"
#include "base/Text.h"
#include "listing/KeptFiles.h"
#include "reliability/DiskFaults.h"
#include "reliability/Workplace.h"

// One program after the other works on the same data folder, does what a seeded agent does, and is killed at
// a random call by which it changes a file. It notes in a report what it has finished; the next one looks
// whether all that is there.

namespace lumarin::reliability {

/// "work LISTING" and "published LISTING" with their photos, "steps LISTING" with what can be undone and done
/// again there, "documents", and "draft" with its pages.
using Known = Photos;
using ::testing::PrintToString;

/// What the programs before this one reported: what was finished, and what was begun then; "" for nothing.
struct Story {
    Known finished = {{"documents", {}}, {"draft", {}}};
    std::string begun = {};
    Known undone = {};  ///< what an undo or redo that was begun leads to
    int actions = 0;
    std::map<std::string, int> kills = {};  ///< by what was going on
};

void RemoveSteps(Known& known) {
    std::erase_if(known, [](const auto& one) { return one.first.starts_with("steps "); });
}

/// As lines of a report.
std::string Text(const Known& known, char end = 'S') {
    std::string text;
    for (const auto& [name, entries] : known) {
        text += "N" + name + "\n";
        for (const std::string& entry : entries) text += "E" + entry + "\n";
    }
    return text + end;
}

/// Whether one change of pages lies between the two: one more or less, one turned, some moved.
bool IsNextDraft(std::vector<std::string> before, std::vector<std::string> found) {
    std::ranges::sort(before);
    std::ranges::sort(found);
    std::vector<std::string> changed;
    std::ranges::set_symmetric_difference(before, found, std::back_inserter(changed));
    return changed.size() < 2 || (changed.size() == 2 && before.size() == found.size());
}

/// Whether an action that was interrupted, or had ended untold, may have left this.
bool IsOutcome(const Story& story, Known found) {
    Known wanted = story.finished;
    if (found == wanted) return true;
    std::istringstream words(story.begun);
    std::string action, listing;
    words >> action >> listing;
    if (action == "Undo" || action == "Redo") return found == story.undone;
    for (Known* known : {&wanted, &found}) RemoveSteps(*known);
    if (!story.begun.empty() && found == wanted) return true;
    const std::string work = "work " + listing, published = "published " + listing;
    const auto takeBackOne = [&](const std::string& name) {
        if (const auto at = found.find(name); at != found.end() && !at->second.empty()) at->second.pop_back();
    };
    if (action == "load")
        wanted[work] = wanted.contains(published) ? wanted.at(published) : std::vector<std::string>();
    if (action == "drop") wanted.erase(work);
    if (action == "import") takeBackOne(work);
    if (int photo = 0; words >> photo) {
        const auto at = wanted.at(work).begin() + photo;
        if (action == "move") std::iter_swap(at, at + 1);
        if (action == "describe") *at = "Kitchen" + at->substr(at->find(':'));
        if (action == "remove") wanted.at(work).erase(at);
    }
    if (action == "send") {
        // The server has everything, and what the window still has is whole.
        for (const auto& [name, photos] : story.finished)
            if (name.starts_with("work ") && !photos.empty()) wanted["published " + name.substr(5)] = photos;
        std::erase_if(wanted, [&](const auto& one) {
            return one.first.starts_with("work ") && !found.contains(one.first);
        });
    }
    if (action == "pdf" || action == "link") takeBackOne("documents");
    if (action == "delete") wanted.at("documents").erase(wanted.at("documents").begin());
    if (action == "build") {
        // The pages of a draft are only gone when it has been sent.
        const std::vector<std::string>& documents = found.at("documents");
        const bool added = documents.size() > wanted.at("documents").size();
        if (added ? documents.back() != "Plan||2 pages" || found.at("draft").size() % 2 != 0
                  : !IsNextDraft(wanted.at("draft"), found.at("draft")))
            return false;
        if (added) takeBackOne("documents");
        found["draft"] = wanted["draft"];
    }
    return found == wanted;
}

/// No call is counted meanwhile, however deep.
struct Paused {
    Paused() { disk_faults::Pause(++depth > 0); }
    ~Paused() { disk_faults::Pause(--depth > 0); }
    Paused(const Paused&) = delete;
    Paused& operator=(const Paused&) = delete;
    static inline int depth = 0;
};

/// One program: takes up the work, and goes on until it is killed.
class Victim {
public:
    Victim(std::string folder, unsigned seed, int report)
        : random_(seed), seed_(seed), report_(report), folder_(std::move(folder)) {}

    void Live(const Story& story) {
        constexpr int MostCalls = 150;
        constexpr int MostActions = 60;
        const auto kind = Chance(2) ? disk_faults::Kind::Killed : disk_faults::Kind::KilledHalf;
        disk_faults::Begin(folder_, kind, 1 + static_cast<int>(random_() % MostCalls));
        agent_ = std::make_unique<Workplace>(folder_);
        agent_->clock.SetMinutes(static_cast<int>(seed_) * MostActions);
        agent_->pageBuilt = [this] {
            std::string pages = "P";
            for (const std::string& page : agent_->DraftPages()) pages += page + "|";
            Tell(pages);
        };
        agent_->Open();
        agent_->OpenDocuments();
        const Known found = Look();
        if (agent_->Told() > 0) return Tell("F at the start: " + agent_->LastMessage());
        if (!IsOutcome(story, found))
            return Tell("F lost after \"" + story.begun + "\": before " + PrintToString(story.finished) +
                        ", now " + PrintToString(found));
        if (StrayFiles(found) != 0) return Tell("F the server has files of nothing");
        Tell(Text(found));
        for (int action = 0; action < MostActions; ++action) Act();
    }

private:
    bool Chance(unsigned of) { return random_() % of == 0; }

    void Act() {
        if (Chance(3)) return ActOnDocuments();
        const Known known = Look();
        const std::string any = Workplace::Listings[random_() % 3];
        if (known.contains("work " + any) && Chance(4)) {
            agent_->Select(any);
            return Chance(2) ? GoTo(any, "Undo", "Redo") : GoTo(any, "Redo", "Undo");
        }
        if (!known.contains("work " + any)) return Do("load " + any, [&] { agent_->Load(any); });
        if (Chance(5)) return Do("send", [&] { agent_->Send(); });
        if (Chance(15)) {
            Do("drop " + any, [&] { agent_->Select(any), agent_->RemoveListing(); });
            return ExpectUndone(any, known);
        }
        agent_->Select(any);
        const auto count = known.at("work " + any).size();
        const unsigned what = static_cast<unsigned>(random_() % 7);
        if (count < 2 || (what < 3 && count < 8)) return Import(any);
        const auto photo = static_cast<int>(random_() % (count - 1));
        agent_->window->PhotoList.Select(photo);
        const std::string place = any + " " + std::to_string(photo);
        if (what == 3)
            Do("remove " + place, [&] { agent_->window->Menu.ClickTool("DeletePhoto"); });
        else if (what == 4)
            Do("describe " + place, [&] { agent_->DescribeAsKitchen(); });
        else
            Do("move " + place, [&] { agent_->window->cmdMove(1).Press(); });
        ExpectUndone(any, known);
    }

    /// What the step of a listing, or the removal of one, leads to; then it is gone back again.
    Known Beyond(const std::string& listing, const char* there, const char* back) {
        const Paused paused;
        const Known now = Look();
        agent_->Select(listing);
        agent_->window->Menu.ClickTool(there);
        const ListView& listings = agent_->window->RecList;
        const std::string reached = listings.Selected() < 0 ? "" : listings.At(listings.Selected()).text;
        const Known beyond = Look();
        agent_->Select(reached);
        agent_->window->Menu.ClickTool(back);
        if (const Known again = Look(); again != now)
            Tell(std::string("F after ") + there + " and " + back + PrintToString(again) + " not " +
                 PrintToString(now));
        return beyond;
    }

    void ExpectUndone(const std::string& listing, Known before) {
        if (!Chance(3) || Look() == before) return;  // what changes nothing is no step
        Known undone = Beyond(listing, "Undo", "Redo");
        for (Known* known : {&undone, &before}) RemoveSteps(*known);
        if (undone != before) Tell("F undo gives " + PrintToString(undone) + " not " + PrintToString(before));
    }

    void GoTo(const std::string& listing, const char* there, const char* back) {
        if (!agent_->window->Menu.IsEnabled(there)) return;
        Tell(Text(Beyond(listing, there, back), 'U'));
        agent_->Select(listing);
        Do(std::string(there) + " " + listing, [&] { agent_->window->Menu.ClickTool(there); });
    }

    void ActOnDocuments() {
        const std::size_t count = Look().at("documents").size();
        if (count > 4 || (count > 0 && Chance(5)))
            return Do("delete", [&] { agent_->documents->lvFiles.Select(0), agent_->DeleteDocument(); });
        if (Chance(2)) return Do("build", [&] { agent_->BuildPdf(); });
        if (Chance(2)) return Do("link", [&] { agent_->AddLink(); });
        Do("pdf", [&] { agent_->AddPdf(); });
    }

    void Import(const std::string& listing) {
        const int picture = static_cast<int>(random_() % 100);
        Do("import " + listing, [&] { picture < 10 ? agent_->AddLarge() : agent_->Add(picture); });
        agent_->desktop.messages.clear();  // a photo that is there already is refused
    }

    void Do(const std::string& action, const std::function<void()>& work) {
        Tell("A" + action);
        const std::size_t told = agent_->Told();
        work();
        if (agent_->Told() > told && !action.starts_with("import"))
            Tell("F " + action + ": " + agent_->LastMessage());
        Tell(Text(Look()));
    }

    Known Look() {
        const Paused paused;
        Known known{{"documents", agent_->Documents()}, {"draft", agent_->DraftPages()}};
        for (const auto& [listing, photos] : agent_->Work()) known["work " + listing] = photos;
        for (const auto& [listing, photos] : agent_->Published()) known["published " + listing] = photos;
        // A removal that waits stands in front of the steps of a listing or not, by which of them is later.
        const bool waits =
            !kept_files::RemovedListings(agent_->host.common.UserFolder() + "Photo Import/").empty();
        const ToolBar& menu = agent_->window->Menu;
        for (const auto& [listing, photos] : agent_->Work()) {
            agent_->Select(listing);
            known["steps " + listing] = {waits ? "" : menu.At("Undo").description,
                                         menu.At("Redo").description};
        }
        return known;
    }

    /// How many more photos and documents the server holds than are published.
    std::ptrdiff_t StrayFiles(const Known& known) const {
        std::ptrdiff_t files = 0;
        std::error_code none;
        for (const auto& kept : {host::Server::PhotoFolder(folder_), host::Server::DocumentFolder(folder_),
                                 host::Server::Folder(folder_) + "spool"})
            for (const auto& entry : std::filesystem::recursive_directory_iterator(kept, none))
                files += entry.is_regular_file() ? 1 : 0;
        for (const auto& [name, entries] : known)
            for (const std::string& entry : entries)
                if (name.starts_with("published ") ||
                    (name == "documents" && entry.find("||") != std::string::npos))
                    --files;
        return files;
    }

    void Tell(const std::string& line) const {
        const std::string ended = line + "\n";
        if (write(report_, ended.data(), ended.size()) < 0 || line[0] == 'F' || ::testing::Test::HasFailure())
            _exit(1);
    }

    std::mt19937 random_;
    unsigned seed_;
    int report_;
    std::string folder_;
    std::unique_ptr<Workplace> agent_;
};

unsigned Setting(const char* name, unsigned usual) {
    const char* value = std::getenv(name);
    return value == nullptr ? usual : static_cast<unsigned>(std::strtoul(value, nullptr, 10));
}

/// Runs one program; says whether it was killed. What it reported goes into the story.
bool RunOne(const std::string& folder, const std::string& scratch, unsigned seed, Story& story) {
    const std::string report = scratch + "report";
    const int reportFile = open(report.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const pid_t child = fork();
    if (child == 0) {
        setenv("TMPDIR", scratch.c_str(), 1);  // it cannot tidy up after itself
        Victim(folder, seed, reportFile).Live(story);
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    close(reportFile);
    int status = 0;
    waitpid(child, &status, 0);
    const std::string told = files::ReadAll(report);
    std::istringstream lines(told);
    Known found;
    std::vector<std::string>* entries = nullptr;
    for (std::string line; std::getline(lines, line);) {
        const std::string rest = line.substr(1);
        if (line[0] == 'F') ADD_FAILURE() << "seed " << seed << rest;
        if (line[0] == 'A') story.begun = rest;
        if (line[0] == 'N') entries = &found[rest];
        if (line[0] == 'E') entries->push_back(rest);
        if (line[0] == 'U') story.undone = std::exchange(found, {});
        if (line[0] == 'P') {
            story.finished["draft"] = text::Split(rest, '|');
            story.finished["draft"].pop_back();
        }
        if (line[0] != 'S') continue;
        story.finished = std::exchange(found, {});
        story.begun.clear();
        ++story.actions;
    }
    const bool wasKilled = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    EXPECT_TRUE(wasKilled || (WIFEXITED(status) && WEXITSTATUS(status) == 0))
        << "seed " << seed << ", status " << status;
    const std::string doing = told.empty() ? "start" : story.begun.empty() ? "nothing" : story.begun;
    if (wasKilled) ++story.kills[doing.substr(0, doing.find(' '))];
    return wasKilled;
}

TEST(Kills, AnyMoment_NextStartHasWhatWasFinished) {
    const unsigned wanted = Setting("LUMARIN_KILLS", 200);
    const unsigned seed = Setting("LUMARIN_SEED", 1);
    const auto start = std::chrono::steady_clock::now();
    const testing::TemporaryFolder folder, scratch;
    Workplace::Prepare(folder.Path());
    Story story;
    unsigned kills = 0, runs = 0;
    while (kills < wanted && !HasFailure())
        kills += RunOne(folder.Path(), scratch.Path(), seed + runs++, story) ? 1 : 0;
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    std::cout << "seed " << seed << ": " << kills << " kills, " << story.actions << " finished actions, "
              << time.count() << " s; killed while:";
    for (const auto& [action, count] : story.kills) std::cout << ' ' << action << ' ' << count;
    std::cout << '\n';
}

}  // namespace lumarin::reliability
