#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <random>

#include "bench/day/ProgramSession.h"
#include "host/demo/LargePhoto.h"
#include "host/drive/Steps.h"
#include "reliability/Workplace.h"

// The program itself is driven, killed while it does something, and started again on the same data folder.

namespace lumarin::reliability {

namespace steps = host::steps;
using Entries = std::vector<std::string>;

const std::string Listing = Workplace::Listings[0];

struct Known {
    Entries work, published;
    bool operator==(const Known&) const = default;
};

void PrintTo(const Known& known, std::ostream* out) {
    *out << ::testing::PrintToString(known.work) << " published "
         << ::testing::PrintToString(known.published);
}

/// In the last of its commands the program is killed.
struct Action {
    const char* name;
    QStringList commands;
    /// Turns what was there before into what is there afterwards, of which it may take what nobody can
    /// foresee.
    void (*effect)(Known& before, const Known& after);
};

class ProgramKills : public ::testing::Test {
protected:
    ProgramKills() {
        Workplace::Prepare(folder.Path());
        host::DrawLargePhoto(Picture(1).toStdString(), 300, 200, 1);
        host::DrawLargePhoto(Picture(2).toStdString(), 300, 200, 2);
    }

    QString Picture(int number) const {
        return QString::fromStdString(folder.Path() + std::to_string(number) + ".jpg");
    }
    QString NewPicture() {
        const QString path = Picture(++pictures);
        host::DrawLargePhoto(path.toStdString(), 300, 200, static_cast<unsigned>(pictures));
        return path;
    }
    Action Import() {
        return {"import", steps::OpenFiles({NewPicture()}) + steps::Capture(),
                [](Known& before, const Known& after) {
                    if (!after.work.empty()) before.work.push_back(after.work.back());
                }};
    }
    QJsonArray Rows(const QString& list) {
        return QJsonDocument::fromJson(program->Ask("get " + list)).object()["rows"].toArray();
    }
    Known Look() {
        Known found{{}, Workplace::PublishedIn(folder.Path())[Listing]};
        if (Rows("frmLumarin.RecList").isEmpty()) return found;
        program->Ask("select frmLumarin.RecList 0");
        std::string file = folder.Path() + files::FixedPath("user\\Photo Import\\") + Listing + "a.jpg";
        for (const auto& row : Rows("frmLumarin.PhotoList")) {
            const std::string description = row.toArray()[0].toString().toStdString();
            found.work.push_back(description + ":" + Workplace::Identity(file));
            ++file[file.size() - 5];
        }
        return found;
    }
    /// The next run, with three photos at least to work on.
    void Start() {
        program.reset();
        program = std::make_unique<bench::ProgramSession>(
            HOST_PROGRAM, QStringList{"--data", QString::fromStdString(folder.Path()), "--photos"});
        program->Ask("wait frmLumarin");
        found = Look();
    }
    void Prepare() {
        if (found.work.empty()) program->Ask(steps::EnterListing(QString::fromStdString(Listing)));
        for (int photos = static_cast<int>(found.work.size()); photos < 3; ++photos)
            program->Ask(Import().commands);
    }

    testing::TemporaryFolder folder;
    int pictures = 0;
    std::unique_ptr<bench::ProgramSession> program;
    Known found;
};

TEST_F(ProgramKills, AtWork_NextStartHasWhatWasFinished) {
    std::mt19937 random(1);
    Start();
    const QString first = "select frmLumarin.PhotoList 0";
    std::vector<Action> actions = {
        Import(),
        {"move",
         {first, "press frmLumarin.cmdMove(1)"},
         [](Known& before, const Known&) { std::swap(before.work[0], before.work[1]); }},
        {"describe",
         {first, "tool frmLumarin.View_2117"},
         [](Known& before, const Known&) {
             before.work[0] = "Kitchen" + before.work[0].substr(before.work[0].find(':'));
         }},
        {"remove",
         {first, "tool frmLumarin.DeletePhoto"},
         [](Known& before, const Known&) { before.work.erase(before.work.begin()); }},
        {"remove again",
         {first, "tool frmLumarin.DeletePhoto", "tool frmLumarin.Undo", "tool frmLumarin.Redo"},
         [](Known& before, const Known&) { before.work.erase(before.work.begin()); }},
        {"send",
         {"press frmLumarin.cmdSend"},
         [](Known& before, const Known& after) {
             before.published = before.work;
             if (after.work.empty()) before.work.clear();  // else it is only to be sent again
         }},
    };
    std::ranges::shuffle(actions, random);
    for (const Action& action : actions) {
        Prepare();
        const Known before = Look();
        program->Ask(action.commands.first(action.commands.size() - 1));
        // An answer may come while the work goes on with its progress shown; the next waits for its end.
        const bool finished = program->KillDuring({action.commands.back(), "get frmLumarin.RecList"},
                                                  static_cast<int>(random() % 50));
        Start();
        Known after = before;
        action.effect(after, found);
        EXPECT_TRUE(found == after || (!finished && found == before))
            << action.name << (finished ? ", finished" : "") << ": before "
            << ::testing::PrintToString(before) << ", now " << ::testing::PrintToString(found);
    }
    program->End();
}

TEST_F(ProgramKills, PagesInTheBuilder_AreThereAtTheNextStart) {
    const QStringList begin =
        steps::OpenDocuments(QString::fromStdString(Listing)) + QStringList{"tool frmAddDocument.miMakePdf"};
    const auto choose = [&](int picture) { return "choose " + host::Quoted(Picture(picture)); };
    Start();
    const QString add = "press frmMakePDF.cmdAddFiles", get = "get frmMakePDF.lbmBM";
    program->Ask(begin + QStringList{"wait frmMakePDF"} + steps::ChooseBlackAndWhite() +
                 QStringList{add, choose(1), get, add});
    const bool second = program->KillDuring({choose(2), get}, 20);
    Start();
    program->Ask(begin + QStringList{"answer Yes", "wait frmMakePDF"});
    const auto pages = Rows("frmMakePDF.lbmBM").size();
    EXPECT_TRUE(pages == 2 || (pages == 1 && !second)) << pages;
    if (pages == 1) program->Ask(steps::ChooseBlackAndWhite() + QStringList{add, choose(2)});

    const auto sources = [&] {
        Entries shown;
        for (const auto& row : Rows("frmMakePDF.lbmBM"))
            shown.push_back(row.toArray()[1].toString().toStdString());
        return shown;
    };
    const std::tuple<const char*, Entries> changes[] = {
        {"MoveDown", {"2.jpg", "1.jpg"}},
        {"RotateRight", {"2.jpg", "1.jpg"}},
        {"DeletePages", {"1.jpg"}},
        {"undo", {"2.jpg", "1.jpg"}},
    };
    for (const auto& [tool, expected] : changes) {
        const Entries before = sources();
        program->Ask("select frmMakePDF.lbmBM 0");
        const QString change = "tool frmMakePDF." + QString(tool);
        const bool finished = program->KillDuring({change, get}, 5);
        Start();
        program->Ask(begin + QStringList{"answer Yes", "wait frmMakePDF"});
        EXPECT_TRUE(sources() == expected || (!finished && sources() == before)) << tool;
        if (sources() != expected) program->Ask({"select frmMakePDF.lbmBM 0", change});
    }
    program->Ask(steps::EndPdf("Plan"));
    EXPECT_EQ(Rows("frmAddDocument.lvFiles").size(), 1);
    program->End();
}

}  // namespace lumarin::reliability
