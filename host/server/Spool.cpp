#include "host/server/Spool.h"

#include "base/Files.h"
#include "base/Numbers.h"
#include "host/server/PackageReader.h"
#include "host/server/Refusal.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>

namespace host {

namespace {

namespace files = lumarin::files;

constexpr int MostSlots = 64;
constexpr std::size_t LongestName = 128;

/// A held lock file, or -1; the system releases it when the process ends, however it ends.
int TryLock(const std::string& path) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) != 0) {
        close(file);
        return -1;
    }
    return file;
}

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
    while (lock_ < 0 && slot_ < MostSlots) lock_ = TryLock(lockPath(++slot_));
    if (lock_ < 0) throw Refusal("Too many programs use the server's folder");
    ClearSlot(slot_);
    for (const std::string& name : files::List(folder_, [](const std::string&) { return true; })) {
        const int slot = lumarin::LeadingInteger(name);
        const int lock = slot == slot_ ? -1 : TryLock(lockPath(slot));
        if (lock < 0) continue;
        ClearSlot(slot);
        close(lock);
    }
}

Spool::~Spool() {
    try {
        Abort();
    } catch (...) {
        // The next start deletes it.
    }
    close(lock_);
}

void Spool::ClearSlot(int slot) const {
    const auto ofSlot = [slot](const std::string& name) { return name.starts_with(Prefix(slot)); };
    for (const std::string& name : files::List(folder_, ofSlot)) files::TryDelete(folder_ + name);
}

void Spool::Begin(const std::string& name) {
    Abort();
    if (!IsPlainName(name)) throw Refusal("\"" + name + "\" cannot be the name of an upload");
    name_ = name;
    path_ = folder_ + Prefix(slot_) + name;
    received_ = 0;
    out_.open(path_, std::ios::binary | std::ios::trunc);
    state_ = State::Receiving;
    if (!out_) {
        Abort();
        throw lumarin::FileError("write", path_, "the server cannot store the upload");
    }
}

void Spool::Append(std::span<const std::byte> chunk) {
    if (state_ != State::Receiving) throw Refusal("A part of an upload came without its begin");
    received_ += chunk.size();
    if (received_ > PackageReader::LargestPackage) {
        Abort();
        throw Refusal("The upload is too large");
    }
    out_.write(reinterpret_cast<const char*>(chunk.data()), static_cast<std::streamsize>(chunk.size()));
}

void Spool::End() {
    if (state_ != State::Receiving) throw Refusal("An upload ended without its begin");
    out_.close();
    state_ = State::Finished;
    if (!out_) {
        Abort();
        throw lumarin::FileError("write", path_, "the server cannot store the upload");
    }
}

void Spool::Abort() {
    if (state_ == State::Empty) return;
    out_.close();
    out_.clear();
    state_ = State::Empty;
    files::TryDelete(path_);
}

std::string Spool::Finished(const std::string& name) const {
    return state_ == State::Finished && name == name_ ? path_ : std::string();
}

}  // namespace host
