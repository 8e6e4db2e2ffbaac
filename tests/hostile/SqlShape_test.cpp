#include <set>

#include "documents/frmAddDocument.h"
#include "host/database/Schema.h"
#include "host/database/SqlTranslator.h"
#include "hostile/Corpus.h"
#include "lookup/SearchModes.h"
#include "lookup/frmFindProperty.h"
#include "support/FakePdfLibrary.h"
#include "support/PhotoWindowTest.h"

namespace lumarin {

using testing::FakeTable;
using testing::PhotoWindowTest;

/// Whatever an agent types, pastes or chooses is a value: the statement keeps the database's program that it
/// has for harmless input.
class SqlShape : public PhotoWindowTest {
protected:
    SqlShape() : database(":memory:", host::DatabaseUse::Changes) {
        host::EnsureSchema(database);
        desktop.BeLenient([this](Form& form) { play(form); });
        GivenListing(100123);
        PhotoWindowTest::Open();
        const auto answer = host.onQuery;
        host.onQuery = [this, answer](const std::string& sql) {
            if (sql.find("OffOfficeId From") != std::string::npos)
                return FakeTable{{"OffOfficeId"}, {{text}, {text}}};
            if (sql.find("As SelectedId") == std::string::npos) return answer(sql);
            return FakeTable{{"SelectedId", "OwnerName", "StreetNumber", "StreetDirection", "StreetName"},
                             {{text, text, text, text, text}}};
        };
    }

    /// What the database would do for the statement, the values left out.
    std::string Shape(const std::string& sql) {
        try {
            std::string shape;
            host::Statement program(database, "EXPLAIN " + host::TranslateSelect(sql));
            while (program.Step()) {
                const std::string opcode = program.Text(1);
                const bool value = opcode == "String8" || opcode == "Integer" || opcode == "Int64";
                shape += "\n" + opcode;
                for (const int operand : {2, 3, 4, 5, 6})
                    if (!value || operand == 3) shape += " " + program.Text(operand);
            }
            return shape;
        } catch (const Error& error) {
            return error.Description().find("zero character") == std::string::npos ? error.Description() : "";
        }
    }

    /// The shapes of the statements that the component runs when `act` works with `input`.
    std::set<std::string> ShapesFor(const std::string& input, const std::function<void()>& act) {
        text = input;
        host.queries.clear();
        act();
        std::set<std::string> shapes{""};  // refused whole
        for (const std::string& sql : host.queries) shapes.insert(Shape(sql));
        return shapes;
    }

    void ExpectOneShape(const std::string& name, const std::vector<std::string>& harmless,
                        const std::function<void()>& act) {
        std::set<std::string> usual;
        for (const std::string& input : harmless) usual.merge(ShapesFor(input, act));
        EXPECT_GT(usual.size(), 1u) << name;
        for (const std::string& shape : usual)
            EXPECT_TRUE(shape.empty() || shape.starts_with("\nInit")) << shape;
        for (const std::string& input : hostile::Texts())
            for (const std::string& shape : ShapesFor(input, act))
                EXPECT_TRUE(usual.contains(shape)) << name << ": " << input.substr(0, 60) << "\n"
                                                   << shape.substr(0, 900);
    }

    host::Database database;
    std::string text;
    std::function<void(Form&)> play = [](Form&) {};
};

TEST_F(SqlShape, Search_EveryModeMethodAndFilter_KeepsItsShape) {
    frmFindProperty search({desktop, link, engine});
    for (const SearchContext& context : EveryMode)
        for (int method = 0; method < 4; ++method) {
            play = [&](Form&) {
                search.txtOwnerName.SetText(text);
                search.txtStreetName.SetText(text);
                search.optMatchMethodOwner(method).Choose();
                search.optMatchMethodStreet(method).Choose();
                host.agent = host.office = text;
                // The methods take turns with the entries of "Show:", so that each entry is there once.
                search.cmbListingOwner.SetListIndex(method %
                                                    static_cast<int>(search.cmbListingOwner.Items().size()));
                search.cmdShowMatches.Press();
                search.cmdCancel.Press();
            };
            ExpectOneShape(context.tableName + std::to_string(method), {"Lee"}, [&] {
                std::vector<std::string> selected;
                search.FindProperty(context, 0, 0, 0, selected);
            });
        }
}

TEST_F(SqlShape, ListingNumber_EveryWayIn_KeepsItsShape) {
    const auto remove = [this] {
        if (window->cmdRemove.Enabled()) window->cmdRemove.Press();
    };
    ExpectOneShape("typed", {"100123"}, [&] {
        Enter(text);
        window->cmdSend.Press();
        remove();
    });
    ExpectOneShape("file name", {"100123"}, [&] {
        desktop.Choose("/in/" + text + "a.jpg");
        window->Menu.ClickTool("SmartLoad");
        remove();
    });
    play = [](Form& form) {
        auto& search = static_cast<frmFindProperty&>(form);
        if (search.List.Count() > 0) search.List.Select(0);
        search.cmdOK.Press();
    };
    ExpectOneShape("chosen in a search", {"100123"}, [&] {
        window->cmdBrowse.Press();
        remove();
    });
    play = [&](Form& form) {
        auto& prompt = static_cast<frmListnumPrompt&>(form);
        prompt.txtPropertyId.SetText(text);
        prompt.cmdOK.Press();
        if (prompt.IsShown()) prompt.cmdCancel.Press();
    };
    testing::FakePdfLibrary pdf;
    frmAddDocument documents({Ports(), pdf});
    documents.Init(8);
    // One that is there and one that is looked for everywhere.
    ExpectOneShape("documents", {"100123", "100999"},
                   [&] { documents.ActiveBar1.ClickTool("miSelectListing"); });
}

}  // namespace lumarin
