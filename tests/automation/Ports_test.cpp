#include "automation/ports/FieldValues.h"
#include "automation/ports/HostCommon.h"
#include "automation/ports/HostRecordset.h"

#include "automation/TestHost.h"

namespace lumarin::automation {

namespace {

template <class Set>
Variant Holding(VARTYPE type, Set set) {
    VARIANT value{};
    value.vt = type;
    set(value);
    return Variant(value);
}

Variant Money(std::int64_t tenThousandths) {
    return Holding(VT_CY, [&](VARIANT& value) { value.cyVal.int64 = tenThousandths; });
}

Variant Decimal(const char* text) {
    Variant decimal;
    const Variant from(text);
    VariantChangeTypeEx(decimal.Address(), const_cast<VARIANT*>(&from.Get()), 0x0409, 0, VT_DECIMAL);
    return decimal;
}

struct OneMember final : DispatchObject {
    OneMember(const wchar_t* name, Function get) {
        Member(name, std::move(get));
        MakeDefault();
    }
};

}  // namespace

TEST(FieldValues, ValueOfEveryTypeOfADatabase_ReadAsNumberTextOrNull) {
    const std::byte bytes[] = {std::byte{'Z'}, std::byte{0xFC}, std::byte{'g'}};
    const struct {
        const char* name;
        Variant value;
        bool null;
        const char* text;
    } cases[] = {
        {"empty", Variant(), true, ""},
        {"null", Variant::Null(), true, ""},
        {"byte", Holding(VT_UI1, [](VARIANT& value) { value.bVal = 200; }), false, "200"},
        {"small", Holding(VT_I2, [](VARIANT& value) { value.iVal = -5; }), false, "-5"},
        {"long", Variant(std::int32_t{100123}), false, "100123"},
        {"unsigned", Holding(VT_UI4, [](VARIANT& value) { value.ulVal = 4000000000U; }), false, "4000000000"},
        {"huge", Variant(std::int64_t{1} << 40), false, "1099511627776"},
        {"true", Variant(true), false, "-1"},
        {"whole double", Variant(2110.0), false, "2110"},
        {"fraction", Variant(12.5), false, "12.5"},
        {"money", Money(1230000), false, "123"},
        {"cents", Money(1234500), false, "123.45"},
        {"decimal", Decimal("79228162514264337593543950335"), false, "79228162514264337593543950335"},
        {"day", Holding(VT_DATE, [](VARIANT& value) { value.date = 46082; }), false, "2026-03-01"},
        {"moment", Holding(VT_DATE, [](VARIANT& value) { value.date = 46082.5; }), false,
         "2026-03-01 12:00:00"},
        {"text", Variant("Zo\u00EB"), false, "Zo\u00EB"},
        {"empty text", Holding(VT_BSTR, [](VARIANT& value) { value.bstrVal = nullptr; }), false, ""},
        {"bytes", Variant(std::span<const std::byte>(bytes)), false, "Z\u00FCg"},
    };
    for (const auto& [name, value, null, text] : cases) {
        SCOPED_TRACE(name);
        Variant held(value);
        for (const Variant& way : {value, Variant::Reference(held)}) {
            EXPECT_EQ(FieldOf(way.Get()).IsNull(), null);
            EXPECT_EQ(FieldOf(way.Get()).Text(), text);
        }
    }
}

TEST(HostRecordset, FieldsAreACollection_ColumnIsAskedForOnceAndFollowsTheRow) {
    std::size_t row = 0, asked = 0;
    const std::vector<std::string> texts{"a text", "", "Zo\u00EB, who has a longer one"};
    const auto column =
        MakeObject<OneMember>(L"Value", [&](const Arguments&) { return Variant(texts[row]); });
    const auto columns =
        MakeObject<OneMember>(L"Item", [&](const Arguments&) { return ++asked, Variant(column.Get()); });
    const auto rows = MakeObject<OneMember>(L"Fields", [&](const Arguments& arguments) {
        if (arguments.Count() > 0) throw Error(DISP_E_BADPARAMCOUNT, "rows", "no argument");
        return Variant(columns.Get());
    });
    const HostRecordset recordset(Object(rows, "rows"));
    for (std::string text; row < texts.size(); ++row) {
        recordset.ReadText("Any", text);
        EXPECT_EQ(text, texts[row]);
        EXPECT_EQ(recordset.Field("Any").Text(), texts[row]);
    }
    EXPECT_EQ(asked, 1U);
}

TEST_F(TestHost, VelCommon_WithoutTheFurtherMembers_HasDefaultsAndNamesTheOthers) {
    for (const wchar_t* member :
         {L"ProgramFolder", L"ServiceBroker", L"IsOffline", L"UserLevel", L"UserBoardId", L"ManagedOffices",
          L"HasSeveralOffices", L"DocDomain", L"PdfInfoText", L"PhotoFolder", L"FetchPhoto", L"HelpSite",
          L"ListingPhotoFolder", L"ExpectFetches", L"StreetDirectionCaption", L"ShowsStreetDirection",
          L"ReportsPhotoUpdates", L"PhotoDescriptions", L"ListingStatuses"})
        common->faults[member] = Faulty::Fault::IsMissing;
    HostCommon services(Object(common, "VelCommon"));
    EXPECT_FALSE(services.IsOffline() || services.HasSeveralOffices() || services.ReportsPhotoUpdates());
    EXPECT_TRUE(services.ShowsStreetDirection() && services.UserLevel() == 0);
    EXPECT_EQ(services.UserBoardId() + services.ManagedOffices() + services.DocDomain() +
                  services.PdfInfoText() + services.HelpSite(),
              "");
    EXPECT_EQ(services.StreetDirectionCaption(), "Dir");
    EXPECT_EQ(services.ListingPhotoFolder(1), services.UserFolder() + "Published Photos\\");
    EXPECT_TRUE(services.PhotoDescriptions().empty() && services.ListingStatuses().empty());
    services.ExpectFetches();
    for (const auto& [name, read] : {std::pair<const char*, std::function<void()>>{
                                         "\"ProgramFolder\"", [&] { services.ProgramFolder(); }},
                                     {"\"ServiceBroker\"", [&] { services.ServiceBroker(); }},
                                     {"\"FetchPhoto\"", [&] { services.FetchPhoto(1, 1, ""); }}})
        try {
            read();
            ADD_FAILURE() << name;
        } catch (const Error& error) {
            EXPECT_NE(error.Description().find(name), std::string::npos) << error.Description();
        }
}

}  // namespace lumarin::automation
