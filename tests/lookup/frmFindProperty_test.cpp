#include "lookup/frmFindProperty.h"

#include <gtest/gtest.h>

#include "support/FakeHost.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

using testing::FakeHost;
using testing::FakeTable;
using testing::ScriptedDesktop;

const SearchContext Listings = ListingSearch();
const SearchContext Tax{SearchMode::TaxRecord, "Tax", "TaxId"};
const SearchContext Offices{SearchMode::Office, "Office", "OffOfficeId"};
const SearchContext Agents{SearchMode::Agent, "Members", "MemAgentId"};
const SearchContext Rentals{SearchMode::Rental, "Rentals", "ListNum"};

FakeTable SomeListings(int count) {
    FakeTable table{{"SelectedId", "OwnerName", "StreetNumber", "StreetDirection", "StreetName", "AgentName"},
                    {}};
    for (int i = 1; i <= count; ++i)
        table.rows.push_back({FieldValue(std::int64_t{i}),
                              FieldValue("Owner " + std::to_string(i % 7)),
                              FieldValue(std::int64_t{count - i}),
                              {},
                              FieldValue(std::string("Elm")),
                              {}});
    return table;
}

class FindProperty : public ::testing::Test {
protected:
    void SetUp() override { link.Set(host); }
    void TearDown() override { desktop.VerifyAllUsed(); }

    /// Opens the window and lets `play` act in it.
    bool Open(const SearchContext& context, int flags, int ownerFilter, int statusDefault,
              std::function<void()> play) {
        desktop.Play("frmFindProperty", [play = std::move(play)](Form&) { play(); });
        return window.FindProperty(context, flags, ownerFilter, statusDefault, selected);
    }
    void Close() { window.cmdCancel.Press(); }
    std::string Headings() {
        std::string headings;
        for (const auto& column : window.List.Columns()) headings += column.caption + "|";
        return headings;
    }

    FakeHost host;
    ScriptedDesktop desktop;
    HostLink link;
    NoEngineVersion engine;
    frmFindProperty window{{desktop, link, engine}};
    std::vector<std::string> selected;
};

TEST_F(FindProperty, Mode_Opened_PresentsItself) {
    const struct {
        SearchContext context;
        const char *caption, *nameLabel;
        bool byStatus, byOwner;
        int tab;
        std::size_t showEntries;
        const char *headings, *addressHeadings;
    } cases[] = {
        {Listings, "Find Property", "Owner Name:", true, true, 0, 4, "List #|Owner|Number| |Street Name|",
         "List #|Number| |Street Name|Owner|"},
        {Tax, "Find Property", "Owner Name:", false, false, 0, 4, "Tax Id|Owner|Number| |Street Name|",
         "Tax Id|Number| |Street Name|Owner|"},
        {Offices, "Find Office", "Office Name", false, true, 0, 4, "Office Code|Name|", "Office Code|Name|"},
        {Agents, "Find Agent", "Agent Name", false, true, 0, 2, "Agent Code|Name|", "Agent Code|Name|"},
        {Rentals, "Find Rental", "", false, true, 1, 4, "Rental #|Number| |Street Name|",
         "Rental #|Number| |Street Name|"},
    };
    for (const auto& test : cases) {
        const bool opened = Open(test.context, frmFindProperty::SetUpList, 0, 0, [&] {
            EXPECT_EQ(window.Caption(), test.caption);
            EXPECT_EQ(window.lblOwnerName.Caption(), test.nameLabel);
            EXPECT_EQ(window.txtOwnerName.Visible(), test.tab == 0);
            EXPECT_EQ(window.cmbStatus.Visible(), test.byStatus);
            EXPECT_EQ(window.cmbListingOwner.Visible(), test.byOwner);
            EXPECT_EQ(window.cmbListingOwner.Items().size(), test.showEntries);
            EXPECT_EQ(window.sstTab.Tab(), test.tab);
            EXPECT_EQ(Headings(), test.headings);
            window.sstTab.SetTab(1);
            window.cmdShowMatches.Press();
            EXPECT_EQ(Headings(), test.addressHeadings);
            EXPECT_EQ(window.List.Columns()[0].width, 600);
            Close();
        });
        EXPECT_FALSE(opened) << test.caption;
    }
}

TEST_F(FindProperty, UserAndArguments_Opened_ChooseFiltersAndWhetherToSearch) {
    const struct {
        SearchContext context;
        int level, flags, ownerFilter, statusDefault;
        const char *show, *status, *where;  // no condition: no search at once
    } cases[] = {
        {Listings, 10, 3, 2, 0, "My listings", "All Statuses",
         " Where (ListAgentID = 'A101') AND lstStatus IN ("},
        {Listings, 59, 3, 5, 2, "My listings", "Active",
         " Where (LstStatus = '2001' And ListAgentID = 'A101') AND lstStatus IN ("},
        {Listings, 60, 3, 5, 0, "Listings from my company", "All Statuses", " WHERE lstStatus IN ('2001'"},
        {Listings, 89, 1, 5, 0, "Listings from my company", "All Statuses", nullptr},
        {Listings, 90, 3, 5, 0, "All listings", "All Statuses", nullptr},
        {Listings, 100, 3, 5, 0, "All listings", "All Statuses", nullptr},
        {Rentals, 10, 2, 3, 2, "Listings from my company", "", " FROM Rentals;"},
        {Agents, 10, 3, 5, 0, "All", "", "FROM Members;"},
        {Agents, 10, 3, 1, 0, "Agents from my office", "", " Where MemOfficeID = 'OF1';"},
    };
    for (const auto& test : cases) {
        host.level = test.level;
        host.queries = {""};
        Open(test.context, test.flags, test.ownerFilter, test.statusDefault, [&] {
            EXPECT_EQ(window.cmbListingOwner.Text(), test.show);
            EXPECT_EQ(window.cmbStatus.Text(), test.status);
            Close();
        });
        const std::string& query = host.queries.back();
        EXPECT_TRUE(test.where == nullptr ? query.empty() : query.find(test.where) != std::string::npos)
            << test.show << ": " << query;
    }
}

TEST_F(FindProperty, BoardAndCompany_Searched_ComeFromHostAndDatabase) {
    host.level = 95;
    host.onQuery = [](const std::string& sql) {
        if (!sql.starts_with("Select OffOfficeId")) return SomeListings(3);
        return FakeTable{{"OffOfficeId"},
                         {{FieldValue(std::string("OF1"))}, {FieldValue(std::string("OF9"))}}};
    };
    Open(Tax, 3, 5, 0, [&] { Close(); });
    EXPECT_TRUE(host.queries.empty());
    Open(Listings, 3, 5, 0, [&] {
        window.fpAddrMin.SetValue(100);
        window.cmdShowMatches.Press();
        window.cmbListingOwner.SetListIndex(3);
        window.cmbStreetDirection.SetListIndex(1);
        window.optMatchMethodOwner(3).Choose();
        window.txtOwnerName.SetText("Lee");
        window.cmdShowMatches.Press();
        EXPECT_EQ(window.lblMatchCount.Caption(), "3");
        Close();
    });
    ASSERT_EQ(host.queries.size(), 3U);
    EXPECT_NE(host.queries[0].find(" Where (AddressNumber Between 0 And 100 And BoardId = 1) AND"),
              std::string::npos)
        << host.queries[0];
    EXPECT_NE(
        host.queries[2].find(
            " Where (OwnerName Like '%Lee' And StreetDirection = 'N' And AddressNumber Between 0 And 100 And "
            "(ListOfficeID = 'OF1' Or ListOfficeID = 'OF9')) AND"),
        std::string::npos)
        << host.queries[2];
}

TEST_F(FindProperty, Rows_SortedAndConfirmed_GiveTheKey) {
    host.onQuery = [](const std::string&) { return SomeListings(20); };
    const auto confirmBy = [&](std::function<void()> act) {
        return Open(Listings, 3, 2, 0, [&, act] {
            EXPECT_EQ(window.List.Cell(0, 1) + window.List.Cell(0, 2) + window.List.Cell(0, 3) +
                          window.List.Cell(0, 4),
                      "Owner 119Elm");
            window.List.ClickColumn(2);
            EXPECT_EQ(window.List.At(0).key, "20");
            window.List.ClickColumn(2);
            EXPECT_EQ(window.List.At(0).key, "1");
            act();
        });
    };
    EXPECT_TRUE(confirmBy([&] {
        window.List.Select(4);
        window.cmdOK.Press();
    }));
    EXPECT_EQ(selected, std::vector<std::string>{"5"});
    EXPECT_TRUE(confirmBy([&] {
        window.List.Select(1);
        window.List.DoubleClicked();
    }));
    EXPECT_TRUE(confirmBy([&] {
        window.List.Select(2);
        EXPECT_TRUE(window.List.PressKey({Key::Enter}));
    }));
    EXPECT_EQ(selected, std::vector<std::string>{"3"});
    EXPECT_FALSE(confirmBy([&] {
        EXPECT_FALSE(window.List.PressKey({Key::Enter}));
        window.List.DoubleClicked();
        window.cmdOK.Press();
    }));
    EXPECT_FALSE(confirmBy([&] {
        window.List.Select(4);
        window.cmdCancel.Press();
    }));
    EXPECT_FALSE(confirmBy([&] {
        window.List.Select(4);
        window.Unload(CloseReason::Frame);
    }));
    EXPECT_TRUE(selected.empty());
}

TEST_F(FindProperty, LongResult_StillComing_CanBeSortedRepeatedAndStopped) {
    host.onQuery = [](const std::string&) { return SomeListings(5000); };
    Open(Listings, 3, 2, 0, [&] {
        EXPECT_EQ(window.lblMatchCount.Caption(), "1000");
        window.List.Select(0);
        window.List.ClickColumn(2);
        window.tmrRows.Tick();
        EXPECT_EQ(window.List.Count(), 2000);
        EXPECT_EQ(window.List.At(window.List.Selected()).key, "1");
        for (int i = 0; i < 3; ++i) window.tmrRows.Tick();
        EXPECT_EQ(window.List.At(0).key, "5000");
        EXPECT_EQ(window.List.At(4999).key, "1");
        EXPECT_FALSE(window.tmrRows.Enabled());
        window.cmdShowMatches.Press();
        EXPECT_EQ(window.List.At(0).key, "1");
        EXPECT_EQ(window.lblMatchCount.Caption(), "1000");
        Close();
        window.tmrRows.Tick();
        EXPECT_EQ(window.List.Count(), 1000);
    });
}

TEST_F(FindProperty, Query_Fails_IsReportedAndWindowStays) {
    host.onQuery = [](const std::string&) -> FakeTable { throw Error(1, "db", "no such table"); };
    desktop.Expect("no such table");
    Open(Listings, 3, 2, 0, [&] {
        EXPECT_EQ(desktop.messages.back().title, "frmFindProperty-ShowMatches");
        EXPECT_EQ(desktop.pointer, Pointer::Default);
        host.onQuery = [](const std::string&) { return SomeListings(2); };
        window.cmdShowMatches.Press();
        EXPECT_EQ(window.lblMatchCount.Caption(), "2");
        Close();
    });
}

}  // namespace
}  // namespace lumarin
