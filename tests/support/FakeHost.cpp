#include "support/FakeHost.h"

#include <utility>

#include "base/Files.h"
#include "base/Text.h"

namespace lumarin::testing {

namespace {

class FakeRecordset final : public Recordset {
public:
    FakeRecordset(FakeHost& host, FakeTable table) : host_(host), table_(std::move(table)) {}

    bool Eof() const override {
        host_.onRecordset("Eof");
        return AtEnd();
    }
    bool Bof() const override { return table_.rows.empty(); }
    bool IsOpen() const override { return open_; }
    void MoveFirst() override { row_ = 0; }
    void MoveNext() override { ++row_; }
    int RecordCount() const override { return static_cast<int>(table_.rows.size()); }
    void Find(const std::string& criterion) override {
        host_.onRecordset("Find");
        const std::size_t equals = criterion.find(" = ");
        const std::string column = criterion.substr(0, equals);
        while (!AtEnd() && ValueOf(column).Text() != criterion.substr(equals + 3)) MoveNext();
    }
    FieldValue Field(std::string_view column) const override {
        host_.onRecordset("Field");
        return ValueOf(column);
    }
    void Close() override {
        if (std::exchange(open_, false)) ++host_.closedRecordsets;
        host_.onRecordset("Close");
    }

private:
    bool AtEnd() const { return row_ >= table_.rows.size(); }
    FieldValue ValueOf(std::string_view column) const {
        for (std::size_t i = 0; i < table_.columns.size(); ++i)
            if (text::EqualsIgnoringCase(table_.columns[i], column)) return table_.rows.at(row_).at(i);
        throw Error(3265, "recordset", "no column " + std::string(column));
    }

    FakeHost& host_;
    FakeTable table_;
    std::size_t row_ = 0;
    bool open_ = true;
};

class FakeDb final : public DbInterface {
public:
    explicit FakeDb(FakeHost& host) : host_(host) {}
    std::unique_ptr<Recordset> Execute(const std::string&, const std::string& sql) override {
        host_.queries.push_back(sql);
        return std::make_unique<FakeRecordset>(host_, host_.onQuery(sql));
    }

private:
    FakeHost& host_;
};

class FakePhotoService final : public PhotoInterface {
public:
    explicit FakePhotoService(FakeHost& host) : host_(host) {}
    void UploadPhotoFile(const std::string& name, UploadMode mode) override {
        if (mode == UploadMode::Begin) host_.uploaded.clear();
        Step(mode == UploadMode::Begin ? "begin " + name : mode == UploadMode::End ? "end" : "abort");
    }
    void UploadPhotoFile(std::span<const std::byte> chunk) override {
        Step("chunk " + std::to_string(chunk.size()));
        host_.uploaded.append(reinterpret_cast<const char*>(chunk.data()), chunk.size());
    }
    int BatchUpdate(const std::string&, const std::string& packageName, BatchKind) override {
        Step("apply " + packageName);
        return host_.batchResult;
    }

private:
    void Step(const std::string& step) {
        host_.uploads.push_back(step);
        host_.onUpload(step);
    }
    FakeHost& host_;
};

class FakeDocService final : public DocInterface {
public:
    explicit FakeDocService(FakeHost& host) : host_(host) {}
    bool Update(std::string& Command, std::string& ErrorText) override {
        host_.commands.push_back(Command);
        ErrorText = host_.onUpdate(Command);
        return !ErrorText.empty();
    }

private:
    FakeHost& host_;
};

}  // namespace

FakeHost::FakeHost() {
    for (const std::string& folder : {ProgramFolder(), CityFolder(), UserFolder(), PhotoFolder()})
        files::EnsureFolder(folder);
}

void FakeHost::Publish(std::int32_t listNum, const std::vector<std::size_t>& lengths) {
    files::EnsureFolder(ListingPhotoFolder(listNum));
    for (std::size_t i = 0; i < lengths.size(); ++i)
        files::WriteWhole(PhotoFile(listNum, static_cast<int>(i) + 1), std::string(lengths[i], 'p'));
}

std::string FakeHost::ListingPhotoFolder(std::int32_t listingNumber) const {
    return PhotoFolder() + std::to_string(listingNumber % 10) + files::Separator;
}

std::string FakeHost::PhotoFile(std::int32_t listNum, int number) const {
    const char letter = static_cast<char>('a' + number - 1);
    return ListingPhotoFolder(listNum) + std::to_string(listNum) + letter + ".jpg";
}

std::string FakeHost::FetchPhoto(std::int32_t listingNumber, int number, const std::string& version) {
    fetched.push_back(std::to_string(listingNumber) + " " + std::to_string(number) + " " + version);
    std::string path = PhotoFile(listingNumber, number);
    if (!files::FileExists(path)) throw Error(ObjectErrorBase + 2, "FakeHost", "no photo " + path);
    return path;
}

std::unique_ptr<HostService> FakeHost::GetClassInstance(const std::string& name) {
    if (name == DbInterface::ServiceName) return std::make_unique<FakeDb>(*this);
    if (name == PhotoInterface::ServiceName) return std::make_unique<FakePhotoService>(*this);
    if (name == DocInterface::ServiceName) return std::make_unique<FakeDocService>(*this);
    throw Error(ObjectErrorBase + 3, "FakeHost", "no service " + name);
}

}  // namespace lumarin::testing
