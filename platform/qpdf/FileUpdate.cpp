#include "platform/qpdf/FileUpdate.h"

#include <zlib.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <memory>
#include <string_view>

#include "base/FileSystem.h"
#include "base/Files.h"

namespace lumarin::qpdf {

namespace {

using Object = QPDFObjectHandle;

constexpr std::uint64_t TailLength = 1024;
constexpr std::string_view IndexMark = "startxref";
constexpr std::string_view PlainIndex = "xref";

std::string ReadPart(std::ifstream& file, std::uint64_t from, std::size_t length) {
    std::string bytes(length, '\0');
    file.seekg(static_cast<std::streamoff>(from));
    file.read(bytes.data(), static_cast<std::streamsize>(length));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    file.clear();
    return bytes;
}

/// Where the last index begins, as the file's last lines say.
std::optional<std::uint64_t> IndexPosition(std::string_view tail) {
    const std::size_t mark = tail.rfind(IndexMark);
    if (mark == std::string_view::npos) return std::nullopt;
    tail.remove_prefix(mark + IndexMark.size());
    while (!tail.empty() && std::isspace(static_cast<unsigned char>(tail.front())) != 0)
        tail.remove_prefix(1);
    std::uint64_t position = 0;
    const auto [end, problem] = std::from_chars(tail.data(), tail.data() + tail.size(), position);
    return problem == std::errc() ? std::optional(position) : std::nullopt;
}

/// Writes objects one after the other and keeps count of where they lie.
class Appender {
public:
    Appender(FilePipeline& file, std::uint64_t position) : file_(file), position_(position) {}

    /// What a file starts with: the first version with 16 bits per colour, four bytes that show that it is
    /// not text, and the object 0, which is always free.
    void Begin() {
        Put("%PDF-1.5\n%\xE2\xE3\xCF\xD3\n");
        index_ = "0 1\n0000000000 65535 f \n";
    }

    void Add(Object object) {
        const QPDFObjGen number = object.getObjGen();
        char line[64];
        std::snprintf(line, sizeof line, "%d 1\n%010llu %05d n \n", number.getObj(),
                      static_cast<unsigned long long>(position_), number.getGen());
        index_ += line;
        Put(number.unparse(' ') + " obj\n");
        if (object.isStream())
            PutStream(object);
        else
            Put(object.unparseResolved());
        Put("\nendobj\n");
    }

    FileEnd Finish(Object trailer) {
        const std::uint64_t index = position_;
        trailer.replaceKey("/ID", Identity(trailer));
        Put(std::string(PlainIndex) + "\n" + index_ + "trailer " + trailer.unparseResolved() + "\n" +
            std::string(IndexMark) + "\n" + std::to_string(index) + "\n%%EOF\n");
        return {position_, index};
    }

    void Put(std::string_view bytes) {
        const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
        file_.write(data, bytes.size());
        position_ += bytes.size();
        sum_ = crc32_z(sum_, data, bytes.size());
    }

private:
    void PutStream(Object& stream) {
        const std::shared_ptr<Buffer> data = stream.getRawStreamData();
        Object properties = stream.getDict().shallowCopy();
        properties.replaceKey("/Length", Object::newInteger(static_cast<long long>(data->getSize())));
        Put(properties.unparseResolved() + "\nstream\n");
        Put({reinterpret_cast<const char*>(data->getBuffer()), data->getSize()});
        Put("\nendstream");
    }

    /// The document's lasting identity, and one that distinguishes this state of it from the others: the same
    /// bytes get the same one.
    Object Identity(Object& trailer) const {
        char state[33];
        std::snprintf(state, sizeof state, "%016llx%016llx", static_cast<unsigned long long>(position_),
                      static_cast<unsigned long long>(sum_));
        const Object changing = Object::newString(state);
        Object before = trailer.getKey("/ID");
        const bool known = before.isArray() && before.getArrayNItems() == 2;
        return Object::newArray({known ? before.getArrayItem(0) : changing, changing});
    }

    FilePipeline& file_;
    std::uint64_t position_;
    uLong sum_ = crc32(0, nullptr, 0);
    std::string index_;
};

}  // namespace

std::optional<FileEnd> FindFileEnd(QPDF& pdf, const std::string& path) {
    if (pdf.isEncrypted() || pdf.getTrailer().hasKey("/XRefStm")) return std::nullopt;
    FileEnd end{files::FileLength(path), 0};
    std::ifstream file(files::ToPath(path), std::ios::binary);
    const std::uint64_t tail = std::min(end.length, TailLength);
    const auto index = IndexPosition(ReadPart(file, end.length - tail, tail));
    const bool startsAtOnce = ReadPart(file, 0, 5) == "%PDF-";
    if (!index || !startsAtOnce || ReadPart(file, *index, PlainIndex.size()) != PlainIndex)
        return std::nullopt;
    end.index = *index;
    return end;
}

FileEnd WriteUpdate(QPDF& pdf, const std::vector<QPDFObjectHandle>& changed, const FileEnd& end,
                    FilePipeline& file) {
    Object trailer = pdf.getTrailer().shallowCopy();
    trailer.replaceKey("/Size", Object::newInteger(static_cast<long long>(pdf.getObjectCount()) + 1));
    Appender appender(file, end.length);
    if (end.length == 0) {
        appender.Begin();
    } else {
        appender.Put("\n");
        trailer.replaceKey("/Prev", Object::newInteger(static_cast<long long>(end.index)));
    }
    for (const Object& object : changed) appender.Add(object);
    return appender.Finish(trailer);
}

}  // namespace lumarin::qpdf
