#include "host/database/SqliteRecordset.h"

#include "base/Error.h"
#include "host/database/Schema.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace host {

class SqliteRecordsetTest : public ::testing::Test {
protected:
    SqliteRecordsetTest() : changes_(DatabasePath(folder_.Path()), DatabaseUse::Changes) {
        EnsureSchema(changes_);
        changes_.Run(
            "INSERT INTO Photo VALUES (100, 2, '2000,1500', NULL), (123, 1, '900', '1,2110'), (124, NULL, "
            "NULL, '')");
    }

    std::unique_ptr<lumarin::Recordset> Ask(const std::string& sql) { return Query(queries_, sql); }

    lumarin::testing::TemporaryFolder folder_;
    Database changes_;
    Database queries_{DatabasePath(folder_.Path()), DatabaseUse::Queries};
};

TEST_F(SqliteRecordsetTest, Rows_AreReadForwardByColumnNameInAnyCase) {
    const auto rows = Ask("SELECT PhoListNum,PhotoCount,PhotoVersion FROM photo ORDER BY PhoListNum;");
    EXPECT_EQ(rows->RecordCount(), 3);
    EXPECT_EQ(rows->Field("pholistnum").Integer(), 100);
    EXPECT_EQ(rows->Field("PHOTOVERSION").Text(), "2000,1500");
    rows->MoveNext();
    rows->MoveNext();
    EXPECT_TRUE(rows->Field("PhotoCount").IsNull());
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_THROW(rows->MoveNext(), lumarin::Error);
    EXPECT_THROW(rows->Field("PhotoCount"), lumarin::Error);
    rows->MoveFirst();
    EXPECT_THROW(rows->Field("Photo"), lumarin::Error);
    rows->Close();
    EXPECT_THROW(rows->Eof(), lumarin::Error);
    const auto none = Ask("SELECT ListNum FROM Listings");
    EXPECT_TRUE(none->Eof() && none->Bof() && none->RecordCount() == 0);
}

TEST_F(SqliteRecordsetTest, Find_GoesForwardToTheNumberOrToTheEnd) {
    const auto rows = Ask("SELECT PhoListNum FROM Photo ORDER BY PhoListNum");
    rows->Find("PhoListNum = 123");
    EXPECT_EQ(rows->Field("PhoListNum").Integer(), 123);
    rows->Find("PhoListNum = 100");
    EXPECT_TRUE(rows->Eof()) << "never backward";
    for (const char* criterion : {"PhoListNum = 'x'", "PhoListNum > 1", "Nobody = 1", ""}) {
        rows->MoveFirst();
        EXPECT_THROW(rows->Find(criterion), lumarin::Error) << criterion;
    }
}

TEST_F(SqliteRecordsetTest, LongResult_IsReadAsAskedAndThenLeavesTheDatabaseFree) {
    constexpr int Count = 30'000;
    changes_.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                 std::to_string(Count) +
                 ") INSERT INTO Listings (ListNum, OwnerName) SELECT i, 'Owner ' || i FROM n");
    const auto rows = Ask("SELECT ListNum,OwnerName FROM Listings ORDER BY ListNum");
    rows->Find("ListNum = 25000");
    EXPECT_EQ(rows->Field("OwnerName").Text(), "Owner 25000");
    EXPECT_EQ(rows->RecordCount(), Count);
    changes_.Run("DELETE FROM Listings");
    rows->MoveFirst();
    rows->Find("ListNum = 2");
    EXPECT_EQ(rows->Field("OwnerName").Text(), "Owner 2");
}

TEST_F(SqliteRecordsetTest, Values_OfEverySize_ComeBackWhole) {
    const std::string values[] = {"0", "-1", "2147483647", "-2147483649", "9223372036854775807"};
    const int lengths[] = {0, 1, 251, 252, 255, 256, 70'000};
    for (const std::string& value : values)
        EXPECT_EQ(Ask("SELECT NULL AS a, " + value + " AS b, 'x' AS c FROM Photo")->Field("b").Text(), value);
    for (const int length : lengths) {
        const std::string text(static_cast<std::size_t>(length), 'x');
        const auto row = Ask("SELECT '" + text + "' AS a, " + std::to_string(length) + " AS b FROM Photo");
        EXPECT_EQ(row->Field("b").Integer(), length);
        EXPECT_EQ(row->Field("a").Text(), text) << length;
    }
}

TEST_F(SqliteRecordsetTest, ChangesAndUnknownColumns_AreRefused) {
    EXPECT_THROW(queries_.Run("DELETE FROM Photo"), lumarin::Error);
    EXPECT_THROW(Ask("SELECT NoSuch FROM Photo"), lumarin::Error) << "not taken for a text";
    EXPECT_EQ(Ask("SELECT PhoListNum FROM Photo")->RecordCount(), 3);
}

}  // namespace host
