#pragma once

#include <cstddef>
#include <fstream>
#include <span>
#include <string>

namespace host {

/// Where an upload lies until the server has dealt with it. One upload at a time. Several programs may share
/// one folder: each holds a slot of its own, and what a killed one left in its slot is deleted by the next
/// that starts. Misuse throws Refusal and leaves nothing uploaded; a disk failure throws lumarin::Error.
class Spool {
public:
    /// Folders end in a separator; `lockFolder` holds the slots' lock files.
    Spool(std::string folder, const std::string& lockFolder);
    ~Spool();
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    /// Starts a file under a plain name; an upload that was not finished or used is dropped.
    void Begin(const std::string& name);
    void Append(std::span<const std::byte> chunk);
    void End();
    /// Drops what was uploaded, finished or not.
    void Abort();

    /// Path of the finished upload of this name; "" when there is none.
    std::string Finished(const std::string& name) const;

private:
    enum class State { Empty, Receiving, Finished };

    void ClearSlot(int slot) const;

    std::string folder_;
    int lock_ = -1;
    int slot_ = 0;
    State state_ = State::Empty;
    std::string name_;
    std::string path_;
    std::ofstream out_;
    std::size_t received_ = 0;
};

}  // namespace host
