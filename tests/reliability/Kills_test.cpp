#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <random>
#include <sstream>

#include "reliability/DiskFaults.h"
#include "reliability/Workplace.h"

// One program after the other works on the same data folder, does what a seeded agent does, and is killed at
// a random call by which it changes a file. It tells what it has finished through a pipe; the next one looks
// whether all that is there.

namespace lumarin::reliability {
namespace {

struct Known {
    Photos work, published;
    std::vector<std::string> documents;
    int draftPages = 0;
    bool operator==(const Known&) const = default;
};

/// What the programs before this one told: what was finished, and what was begun then; "" for nothing.
struct Story {
    Known finished = {};
    std::string begun = {};
    int actions = 0;
    std::map<std::string, int> kills = {};  ///< by what was going on
};

constexpr char FieldEnd = '\t';
constexpr char ListEnd = '\v';
constexpr char PartEnd = '\f';

std::vector<std::string> Split(const std::string& text, char end) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, end);) parts.push_back(part);
    return parts;
}

std::string Text(const std::vector<std::string>& entries) {
    std::string text;
    for (const std::string& entry : entries) text += entry + FieldEnd;
    return text;
}

std::string Text(const Photos& photos) {
    std::string text;
    for (const auto& [listing, entries] : photos) text += listing + FieldEnd + Text(entries) + ListEnd;
    return text;
}

std::string Text(const Known& known) {
    return Text(known.work) + PartEnd + Text(known.published) + PartEnd + Text(known.documents) + PartEnd +
           std::to_string(known.draftPages);
}

Photos PhotosFromText(const std::string& text) {
    Photos photos;
    for (const std::string& list : Split(text, ListEnd)) {
        std::vector<std::string> entries = Split(list, FieldEnd);
        const std::string listing = entries.front();
        entries.erase(entries.begin());
        photos[listing] = entries;
    }
    return photos;
}

Known KnownFromText(const std::string& text) {
    const std::vector<std::string> parts = Split(text, PartEnd);
    return {PhotosFromText(parts.at(0)), PhotosFromText(parts.at(1)), Split(parts.at(2), FieldEnd),
            std::stoi(parts.at(3))};
}

/// The states that an action may have left when it was interrupted or had ended untold.
class Outcomes {
public:
    explicit Outcomes(const Story& story) : before_(story.finished), begun_(story.begun) {}

    bool Allow(const Known& found) const {
        if (found == before_) return true;
        if (found.documents != before_.documents || found.draftPages != before_.draftPages)
            return found.work == before_.work && found.published == before_.published && IsChange(found);
        std::istringstream words(begun_);
        std::string action, listing;
        int photo = 0, code = 0;
        words >> action >> listing >> photo >> code;
        if (action == "send") return IsSent(found);
        if (found.published != before_.published) return false;
        Photos wanted = before_.work;
        if (action == "load") wanted[listing] = PublishedOf(listing);
        if (action == "drop") wanted.erase(listing);
        if (action == "import") return HasOneMore(found.work, listing);
        auto& photos = wanted[listing];
        const auto at = photos.begin() + photo;
        if (action == "move") std::iter_swap(at, at + 1);
        if (action == "remove") photos.erase(at);
        if (action == "describe") *at = "Kitchen" + at->substr(at->find(':'));
        if (action == "drop") wanted.erase(listing);
        return found.work == wanted;
    }

private:
    /// One document more or less; pages of a draft are only gone when it has been sent.
    bool IsChange(const Known& found) const {
        const auto& before = before_.documents;
        const bool same = found.documents == before;
        const bool added = found.documents.size() == before.size() + 1 &&
                           std::equal(before.begin(), before.end(), found.documents.begin());
        if (begun_ == "build")
            return added ? found.documents.back() == "Plan||2 pages" && found.draftPages % 2 == 0
                         : same && found.draftPages >= before_.draftPages;
        if (found.draftPages != before_.draftPages) return false;
        if (begun_ == "delete")
            return std::equal(before.begin() + 1, before.end(), found.documents.begin(),
                              found.documents.end());
        return added && (begun_ == "pdf" || begun_ == "link");
    }
    std::vector<std::string> PublishedOf(const std::string& listing) const {
        const auto found = before_.published.find(listing);
        return found == before_.published.end() ? std::vector<std::string>() : found->second;
    }
    bool HasOneMore(Photos found, const std::string& listing) const {
        if (found[listing].empty()) return false;
        found[listing].pop_back();
        return found == before_.work;
    }
    /// The server has everything or nothing, and what the window still has is whole.
    bool IsSent(const Known& found) const {
        Photos wanted = before_.published;
        for (const auto& [listing, photos] : before_.work)
            if (!photos.empty()) wanted[listing] = photos;
        if (found.published != wanted) return false;
        for (const auto& [listing, photos] : found.work)
            if (!before_.work.contains(listing) || before_.work.at(listing) != photos) return false;
        return true;
    }

    const Known& before_;
    const std::string& begun_;
};

/// One program: takes up the work, and goes on until it is killed.
class Victim {
public:
    Victim(const std::string& folder, unsigned seed, int pipe)
        : random_(seed), seed_(seed), pipe_(pipe), folder_(folder) {}

    void Live(const Story& story) {
        constexpr int MostCalls = 150;
        constexpr int MostActions = 60;
        const auto kind = Chance(2) ? disk_faults::Kind::Killed : disk_faults::Kind::KilledHalf;
        disk_faults::Begin(folder_, kind, 1 + static_cast<int>(random_() % MostCalls));
        agent_ = std::make_unique<Workplace>(folder_);
        agent_->clock.SetMinutes(static_cast<int>(seed_) * MostActions);
        agent_->pageBuilt = [this] { Tell("P" + std::to_string(agent_->DraftPages())); };
        agent_->Open();
        agent_->OpenDocuments();
        const Known found = Look();
        if (agent_->Told() > 0) return Tell("F at the start: " + agent_->LastMessage());
        if (!Outcomes(story).Allow(found))
            return Tell("F lost after \"" + story.begun + "\": before " + Text(story.finished) + ", now " +
                        Text(found));
        if (StoredFiles() != Count(found.published)) return Tell("F the server has files of nothing");
        Tell("S" + Text(found));
        for (int action = 0; action < MostActions; ++action) Act();
    }

private:
    bool Chance(unsigned of) { return random_() % of == 0; }

    void Act() {
        if (Chance(3)) return ActOnDocuments();
        const Photos work = Look().work;
        const std::string any = Workplace::Listings[random_() % 3];
        if (!work.contains(any)) return Do("load " + any, [&] { agent_->Load(any); });
        if (Chance(5)) return Do("send", [&] { agent_->Send(); });
        if (Chance(15)) return Do("drop " + any, [&] { agent_->Select(any), agent_->RemoveListing(); });
        agent_->Select(any);
        const auto count = work.at(any).size();
        const unsigned what = static_cast<unsigned>(random_() % 7);
        if (count < 2 || (what < 3 && count < 8)) return Import(any);
        const auto photo = static_cast<int>(random_() % (count - 1));
        agent_->window->PhotoList.Select(photo);
        const std::string place = any + " " + std::to_string(photo);
        if (what == 3)
            Do("remove " + place, [&] { agent_->window->Menu.ClickTool("DeletePhoto"); });
        else if (what == 4)
            Do("describe " + place, [&] { agent_->Describe(2117); });
        else
            Do("move " + place, [&] { agent_->window->cmdMove(1).Press(); });
    }

    void ActOnDocuments() {
        const std::size_t count = Look().documents.size();
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
        Tell("S" + Text(Look()));
    }

    Known Look() {
        disk_faults::Pause(true);
        Known known{agent_->Work(), agent_->Published(), agent_->Documents(), agent_->DraftPages()};
        disk_faults::Pause(false);
        return known;
    }

    static std::size_t Count(const Photos& photos) {
        std::size_t count = 0;
        for (const auto& [listing, entries] : photos) count += entries.size();
        return count;
    }
    std::size_t StoredFiles() const {
        std::size_t count = 0;
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(host::Server::PhotoFolder(folder_)))
            count += entry.is_regular_file();
        return count;
    }

    void Tell(const std::string& line) const {
        const std::string ended = line + "\n";
        if (write(pipe_, ended.data(), ended.size()) < 0 || line[0] == 'F') _exit(1);
    }

    std::mt19937 random_;
    unsigned seed_;
    int pipe_;
    std::string folder_;
    std::unique_ptr<Workplace> agent_;
};

unsigned Setting(const char* name, unsigned usual) {
    const char* value = std::getenv(name);
    return value == nullptr ? usual : static_cast<unsigned>(std::strtoul(value, nullptr, 10));
}

/// Runs one program; says whether it was killed. What it told goes into the story.
bool RunOne(const std::string& folder, const std::string& scratch, unsigned seed, Story& story) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        setenv("TMPDIR", scratch.c_str(), 1);  // it cannot tidy up after itself
        Victim(folder, seed, ends[1]).Live(story);
        _exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    close(ends[1]);
    std::string told;
    char block[4096];
    for (ssize_t count = 0; (count = read(ends[0], block, sizeof block)) > 0;)
        told.append(block, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    std::istringstream lines(told);
    for (std::string line; std::getline(lines, line);) {
        const std::string rest = line.substr(1);
        if (line[0] == 'F') ADD_FAILURE() << "seed " << seed << rest;
        if (line[0] == 'A') story.begun = rest;
        if (line[0] == 'P') story.finished.draftPages = std::stoi(rest);
        if (line[0] != 'S') continue;
        story.finished = KnownFromText(rest);
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

}  // namespace
}  // namespace lumarin::reliability
