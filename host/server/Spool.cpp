#include "host/server/Spool.h"

#include "base/FileSystem.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "host/server/PackageReader.h"
#include "host/server/Refusal.h"

#include <algorithm>
#include <iterator>

namespace host {

namespace {

namespace files = lumarin::files;
using lumarin::platform::FileLock;

constexpr int MostSlots = 64;
constexpr std::size_t MostUploads = 8;
constexpr std::size_t LongestName = 128;

bool IsPlainName(const std::string& name) {
    const bool plain = std::none_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F || c == '/' || c == '\\' || c == ':';
    });
    return plain && !name.empty() && name.size() <= LongestName && name.find("..") == std::string::npos &&
           name[0] != '.';
}

std::string Prefix(int slot) { return std::to_string(slot) + "-"; }

}  // namespace

Spool::Spool(std::string folder, const std::string& lockFolder) : folder_(std::move(folder)) {
    files::EnsureFolder(folder_);
    const auto lockPath = [&](int slot) { return lockFolder + "spool-" + std::to_string(slot) + ".lock"; };
    while (!lock_ && slot_ < MostSlots) lock_ = FileLock::Try(lockPath(++slot_));
    if (!lock_) throw Refusal("Too many programs use the server's folder");
    ClearSlot(slot_);
    for (const std::string& name : files::List(folder_, [](const std::string&) { return true; })) {
        const int slot = lumarin::LeadingInteger(name);
        if (slot == slot_ || !FileLock::Try(lockPath(slot))) continue;
        ClearSlot(slot);
    }
}

Spool::~Spool() {
    while (!uploads_.empty()) Drop(uploads_.begin());
}

void Spool::ClearSlot(int slot) const {
    const auto ofSlot = [slot](const std::string& name) { return name.starts_with(Prefix(slot)); };
    for (const std::string& name : files::List(folder_, ofSlot)) files::TryDelete(folder_ + name);
}

Spool::Uploads::iterator Spool::Find(Sender sender) {
    const auto own = std::find_if(uploads_.begin(), uploads_.end(),
                                  [&](const Upload& upload) { return upload.sender == sender; });
    const bool takesLast = own == uploads_.end() && sender == nullptr && !uploads_.empty();
    return takesLast ? std::prev(uploads_.end()) : own;
}

Spool::Uploads::const_iterator Spool::FindFinished(const std::string& name) const {
    return std::find_if(uploads_.begin(), uploads_.end(),
                        [&](const Upload& upload) { return upload.finished && upload.name == name; });
}

Spool::Upload& Spool::Receiving(Sender sender, const char* refusal) {
    const auto upload = Find(sender);
    if (upload == uploads_.end() || upload->finished) throw Refusal(refusal);
    return *upload;
}

void Spool::Drop(Uploads::const_iterator upload) {
    const std::string path = upload->path;
    uploads_.erase(upload);  // closes the file
    files::TryDelete(path);
}

void Spool::Begin(const std::string& name, Sender sender) {
    const auto before = Find(sender);
    if (before != uploads_.end() && before->sender == sender) Drop(before);  // not another's
    if (!IsPlainName(name)) throw Refusal("\"" + name + "\" cannot be the name of an upload");
    // Whoever begins that many and ends none has forgotten the first.
    if (uploads_.size() == MostUploads) Drop(uploads_.begin());
    const std::string path = folder_ + Prefix(slot_) + std::to_string(++serial_) + "-" + name;
    uploads_.push_back({.sender = sender,
                        .name = name,
                        .path = path,
                        .out = std::ofstream(files::ToPath(path), std::ios::binary | std::ios::trunc)});
    if (uploads_.back().out) return;
    Drop(std::prev(uploads_.end()));
    throw lumarin::FileError("write", path, "the server cannot store the upload");
}

void Spool::Append(std::span<const std::byte> chunk, Sender sender) {
    Upload& upload = Receiving(sender, "A part of an upload came without its begin");
    upload.received += chunk.size();
    if (upload.received > PackageReader::LargestPackage) {
        Drop(Find(sender));
        throw Refusal("The upload is too large");
    }
    upload.out.write(reinterpret_cast<const char*>(chunk.data()), static_cast<std::streamsize>(chunk.size()));
}

void Spool::End(Sender sender) {
    Upload& upload = Receiving(sender, "An upload ended without its begin");
    upload.out.close();
    upload.finished = true;
    if (upload.out) return;
    const std::string path = upload.path;
    Drop(Find(sender));
    throw lumarin::FileError("write", path, "the server cannot store the upload");
}

void Spool::Abort(Sender sender) {
    const auto upload = Find(sender);
    if (upload != uploads_.end()) Drop(upload);
}

std::string Spool::Finished(const std::string& name) const {
    const auto upload = FindFinished(name);
    return upload == uploads_.end() ? std::string() : upload->path;
}

void Spool::Drop(const std::string& name) {
    const auto upload = FindFinished(name);
    if (upload != uploads_.end()) Drop(upload);
}

}  // namespace host
