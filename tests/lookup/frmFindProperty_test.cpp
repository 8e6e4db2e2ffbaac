#include "lookup/frmFindProperty.h"

#include "lookup/SearchModes.h"
#include "support/WindowTest.h"

namespace lumarin {

using testing::FakeTable;

FakeTable SomeListings(int count) {
    FakeTable table{{"SelectedId", "OwnerName", "StreetNumber", "StreetDirection", "StreetName", "AgentName"},
                    {}};
    for (int i = 1; i <= count; ++i)
        table.rows.push_back({i, "Owner " + std::to_string(i % 7), count - i, {}, "Elm", {}});
    return table;
}

class FindProperty : public testing::WindowTest {
protected:
    /// Opens the window and lets `play` act in it, who closes it in the end if it is still open.
    bool Open(
        const SearchContext& context, int flags, int ownerFilter, int statusDefault,
        const std::function<void()>& play = [] {}) {
        desktop.Play("frmFindProperty", [&](Form&) {
            play();
            if (window.IsShown()) window.cmdCancel.Press();
        });
        return window.FindProperty(context, flags, ownerFilter, statusDefault, selected);
    }
    std::string Headings() {
        std::string headings;
        for (const auto& column : window.List.Columns()) headings += column.caption + "|";
        return headings;
    }
    std::string Key(int row) { return window.List.At(row).key; }

    frmFindProperty window{{desktop, link, engine}};
    Texts selected;
};

TEST_F(FindProperty, Mode_Opened_OffersWhatItCanBeSearchedBy) {
    const struct {
        SearchContext context;
        bool byStatus, byOwner, byName;
        std::size_t showEntries;
        const char *headings, *addressHeadings;
    } cases[] = {
        {Listings, true, true, true, 4, "List #|Owner|Number| |Street Name|",
         "List #|Number| |Street Name|Owner|"},
        {TaxRecords, false, false, true, 4, "Tax Id|Owner|Number| |Street Name|",
         "Tax Id|Number| |Street Name|Owner|"},
        {Offices, false, true, true, 4, "Office Code|Name|", "Office Code|Name|"},
        {Agents, false, true, true, 2, "Agent Code|Name|", "Agent Code|Name|"},
        {Rentals, false, true, false, 4, "Rental #|Number| |Street Name|", "Rental #|Number| |Street Name|"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.headings);
        EXPECT_FALSE(Open(test.context, frmFindProperty::SetUpList, 0, 0, [&] {
            EXPECT_EQ(window.cmbStatus.Visible(), test.byStatus);
            EXPECT_EQ(window.cmbListingOwner.Visible(), test.byOwner);
            EXPECT_EQ(window.txtOwnerName.Visible(), test.byName);
            EXPECT_EQ(window.sstTab.Tab(), test.byName ? 0 : 1);
            EXPECT_EQ(window.cmbListingOwner.Items().size(), test.showEntries);
            EXPECT_EQ(Headings(), test.headings);
            window.sstTab.SetTab(1);
            window.cmdShowMatches.Press();
            EXPECT_EQ(Headings(), test.addressHeadings);
        }));
    }
}

TEST_F(FindProperty, UserAndArguments_Opened_ChooseFiltersAndWhetherToSearch) {
    // A search in the own company asks for its offices first.
    const std::tuple<SearchContext, int, int, int, int, const char*, std::size_t> cases[] = {
        {Listings, 10, 3, 2, 0, "My listings|All Statuses", 1},
        {Listings, 10, 3, 5, 2, "My listings|Active", 1},
        {Listings, 60, 3, 5, 0, "Listings from my company|All Statuses", 2},
        {Listings, 60, 1, 5, 0, "Listings from my company|All Statuses", 0},
        {Listings, 90, 3, 5, 0, "All listings|All Statuses", 0},
        {Listings, 100, 3, 5, 0, "All listings|All Statuses", 0},
        {Rentals, 10, 2, 3, 2, "Listings from my company|", 2},
        {Agents, 10, 3, 1, 0, "Agents from my office|", 1},
    };
    for (const auto& [context, level, flags, ownerFilter, statusDefault, filters, queries] : cases) {
        host.level = level;
        host.queries.clear();
        Open(context, flags, ownerFilter, statusDefault, [&, expected = filters] {
            EXPECT_EQ(window.cmbListingOwner.Text() + "|" + window.cmbStatus.Text(), expected);
        });
        EXPECT_EQ(host.queries.size(), queries) << filters;
    }
}

TEST_F(FindProperty, BoardAndCompany_Searched_ComeFromHostAndDatabase) {
    host.level = 95;
    host.onQuery = [](const std::string& sql) {
        if (!sql.starts_with("Select OffOfficeId")) return SomeListings(3);
        return FakeTable{{"OffOfficeId"}, {{"OF1"}, {"OF9"}}};
    };
    Open(TaxRecords, 3, 5, 0);
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
        window.cmbListingOwner.SetListIndex(1);
        window.cmbStatus.SetListIndex(1);
        window.cmdShowMatches.Press();
    });
    ASSERT_EQ(host.queries.size(), 4U);
    const std::pair<int, const char*> conditions[] = {
        {0, " Where (AddressNumber Between 0 And 100 And BoardId = 1) AND "},
        {2,
         " Where (OwnerName Like '%Lee' And StreetDirection = 'N' And AddressNumber Between 0 And 100 And "
         "(ListOfficeID = 'OF1' Or ListOfficeID = 'OF9')) AND "},
        {3, " And LstStatus = '2001' And ListAgentID = 'A101') AND lstStatus IN ('2001'"},
    };
    for (const auto& [query, text] : conditions)
        EXPECT_NE(host.queries.at(query).find(text), std::string::npos) << host.queries[query];
}

TEST_F(FindProperty, Rows_SortedAndConfirmed_GiveTheirKeys) {
    host.onQuery = [](const std::string&) { return SomeListings(20); };
    const std::tuple<std::vector<int>, Texts, std::function<void()>> cases[] = {
        {{4}, {"5"}, [&] { window.cmdOK.Press(); }},
        {{7, 3}, {"8", "4"}, [&] { window.List.ClickColumn(2), window.cmdOK.Press(); }},  // from the top
        {{1}, {"2"}, [&] { window.List.DoubleClicked(); }},
        {{2}, {"3"}, [&] { EXPECT_TRUE(window.List.PressKey({Key::Enter})); }},
        {{}, {}, [&] { EXPECT_FALSE(window.List.PressKey({Key::Enter}) || window.cmdOK.Enabled()); }},
        {{}, {}, [&] { window.List.DoubleClicked(), window.cmdOK.Press(); }},
        {{4}, {}, [&] { window.cmdShowMatches.Press(), window.cmdOK.Press(); }},  // none is chosen any more
        {{4}, {}, [&] { window.cmdCancel.Press(); }},
        {{4}, {}, [&] { window.Unload(CloseReason::Frame); }},
    };
    for (const auto& [rows, keys, leave] : cases) {
        const auto play = [&, &chosen = rows, &leaves = leave] {
            EXPECT_FALSE(window.cmdOK.Enabled());
            for (int column = 0; const char* text : {"1", "Owner 1", "19", "", "Elm"})
                EXPECT_EQ(window.List.Cell(0, column++), text);
            for (const char* first : {"20", "1"}) {
                window.List.ClickColumn(2);
                EXPECT_EQ(Key(0), first);
            }
            window.List.SelectRows(chosen);
            EXPECT_EQ(window.cmdOK.Enabled(), !chosen.empty());
            leaves();
        };
        EXPECT_EQ(Open(Listings, 3, 2, 0, play), !keys.empty());
        EXPECT_EQ(selected, keys);
    }
}

TEST_F(FindProperty, Criteria_OnTheTabBehind_CanBeReadOnIt) {
    Open(Listings, 1, 2, 0, [&] {
        window.txtOwnerName.SetText("O'Br");
        EXPECT_EQ(window.sstTab.TabNote(0), "");
        window.sstTab.SetTab(1);
        EXPECT_EQ(window.sstTab.TabNote(0), "O'Br");
        window.txtStreetName.SetText("Elm");
        window.cmbStreetDirection.SetListIndex(1);
        window.fpAddrMin.SetValue(100);
        window.sstTab.SetTab(0);
        EXPECT_EQ(window.sstTab.TabNote(0) + "|" + window.sstTab.TabNote(1), "|Elm N 0-100");
    });
    Open(Listings, 1, 2, 0, [&] { EXPECT_EQ(window.sstTab.TabNote(1), ""); });
}

TEST_F(FindProperty, LongResult_StillComing_CanBeSortedRepeatedAndStopped) {
    host.onQuery = [](const std::string&) { return SomeListings(5000); };
    Open(Listings, 3, 2, 0, [&] {
        EXPECT_EQ(window.lblMatchCount.Caption(), "1000");
        window.List.Select(0);
        window.List.ClickColumn(2);
        window.tmrRows.Tick();
        EXPECT_EQ(window.List.Count(), 2000);
        EXPECT_EQ(Key(window.List.Selected()), "1");
        for (int i = 0; i < 3; ++i) window.tmrRows.Tick();
        EXPECT_EQ(Key(0) + " " + Key(4999), "5000 1");
        EXPECT_FALSE(window.tmrRows.Enabled());
        window.cmdShowMatches.Press();
        EXPECT_EQ(Key(0), "1");
        EXPECT_EQ(window.lblMatchCount.Caption(), "1000");
        window.cmdCancel.Press();
        window.tmrRows.Tick();
        EXPECT_EQ(window.List.Count(), 1000);
    });
}

TEST_F(FindProperty, Query_Fails_IsReportedAndWindowStays) {
    host.onQuery = [](const std::string&) -> FakeTable { throw Error(1, "db", "no such table"); };
    desktop.Expect("no such table", "frmFindProperty-ShowMatches");
    Open(Listings, 3, 2, 0, [&] {
        EXPECT_EQ(desktop.pointer, Pointer::Default);
        host.onQuery = [](const std::string&) { return SomeListings(2); };
        window.cmdShowMatches.Press();
        EXPECT_EQ(window.lblMatchCount.Caption(), "2");
    });
}

}  // namespace lumarin
