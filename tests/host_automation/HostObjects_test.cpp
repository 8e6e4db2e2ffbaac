#include <gtest/gtest.h>

#include "automation/calls/Object.h"
#include "host/automation/VelCommonObject.h"
#include "support/FakeHost.h"

namespace host {

using lumarin::Error;
using lumarin::automation::Bstr;
using lumarin::automation::IntegerOf;
using lumarin::automation::MakeObject;
using lumarin::automation::Object;
using lumarin::automation::TextOf;
using lumarin::automation::TruthOf;
using lumarin::automation::Variant;

class HostObjectsTest : public ::testing::Test {
protected:
    Object Service(const char* name) {
        return common.AsObject(L"ServiceBroker").AsObject(L"GetClassInstance", {Variant(name)});
    }
    Object Rows() { return Service("DbInterface").AsObject(L"Execute", {Variant("VEL"), Variant("SELECT")}); }

    lumarin::testing::FakeHost host;
    const Object common{MakeObject<VelCommonObject>(host, [] { return std::intptr_t{4711}; }), "VelCommon"};
};

TEST_F(HostObjectsTest, Recordset_ByName_GivesEveryKindOfValueRowByRow) {
    host.onQuery = [](const std::string&) {
        return lumarin::testing::FakeTable{{"ListNum", "Name", "Big"},
                                           {{100123, "Zo\u00EB \u65E5", 3'000'000'000}, {-1, "", {}}}};
    };
    const Object rows = Rows();
    EXPECT_EQ(IntegerOf(rows.Get(L"State").Get()), 1);
    const Object number = rows.AsObject(L"Fields", {Variant("ListNum")});
    const Object name = Object(
        lumarin::automation::ObjectOf(rows.AsObject(L"Fields").GetDefault({Variant("name")}).Get()), "field");
    EXPECT_EQ(TextOf(rows.AsObject(L"Fields", {Variant("Big")}).Get(L"Value").Get()), "3000000000");
    std::string seen;
    for (; !TruthOf(rows.Get(L"EOF").Get()); rows.Call(L"MoveNext"))
        seen += TextOf(number.Get(L"Value").Get()) + TextOf(name.GetDefault({}).Get()) + ";";
    EXPECT_EQ(seen, "100123Zo\u00EB \u65E5;-1;");
    rows.Call(L"MoveFirst");
    rows.Call(L"Find", {Variant("ListNum = -1")});
    EXPECT_EQ(rows.AsObject(L"Fields", {Variant("Big")}).Get(L"Value").Type(), VT_NULL);
    rows.Call(L"Close");
    EXPECT_EQ(IntegerOf(rows.Get(L"State").Get()), 0);
}

TEST_F(HostObjectsTest, Services_TakeArgumentsByReference_AndTellTheirFailures) {
    const Object photos = Service("PhotoInterface");
    Bstr name(std::string_view("p.zip")), empty;
    photos.Call(L"UploadPhotoFile", {Variant::Reference(name), Variant(std::int32_t{1})});
    Variant chunk(std::as_bytes(std::span("bytes", 5)));
    photos.Call(L"UploadPhotoFile", {Variant::Reference(chunk)});
    photos.Call(L"UploadPhotoFile", {Variant::Reference(empty), Variant(std::int32_t{2})});
    EXPECT_EQ(
        IntegerOf(
            photos.Get(L"BatchUpdate", {Variant("VEL"), Variant::Reference(name), Variant(std::int32_t{2})})
                .Get()),
        0);
    EXPECT_EQ(host.uploads, (std::vector<std::string>{"begin p.zip", "chunk 5", "end", "apply p.zip"}));

    host.onUpdate = [](const std::string&) { return "No such document"; };
    Bstr command(std::string_view("D|1")), errorText;
    EXPECT_TRUE(TruthOf(Service("DocInterface")
                            .Get(L"Update", {Variant::Reference(command), Variant::Reference(errorText)})
                            .Get()));
    EXPECT_EQ(errorText.Text(), "No such document");

    host.onQuery = [](const std::string&) -> lumarin::testing::FakeTable {
        throw Error(3021, "database", "No such table");
    };
    const auto failure = [](const auto& call) -> std::string {
        try {
            call();
        } catch (const Error& error) {
            return std::to_string(error.Number() & 0xffff) + " " + error.Source() + ": " +
                   error.Description();
        }
        return "none";
    };
    EXPECT_EQ(failure([&] { Rows(); }), "3021 database: No such table");
    EXPECT_NE(failure([&] { common.Get(L"None"); }).find("has no member \"None\""), std::string::npos);
}

}  // namespace host
