#pragma once

#include <cstddef>
#include <fstream>
#include <list>
#include <optional>
#include <span>
#include <string>

#include "platform/system/FileLock.h"

namespace host {

/// Where uploads lie until the server has dealt with them. Each sender has one at a time; one without a name
/// goes on with what was begun last. Several programs may share one folder: each holds a slot of its
/// own, and what a killed one left in its slot is deleted by the next that starts. Misuse throws Refusal and
/// leaves nothing of that upload; a disk failure throws lumarin::Error.
class Spool {
public:
    /// Folders end in a separator; `lockFolder` holds the slots' lock files.
    Spool(std::string folder, const std::string& lockFolder);
    ~Spool();
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    /// Tells senders apart, and is never followed; null is the one without a name.
    using Sender = const void*;

    /// Starts a file under a plain name; the sender's upload that was not finished or used is dropped.
    void Begin(const std::string& name, Sender sender = nullptr);
    void Append(std::span<const std::byte> chunk, Sender sender = nullptr);
    void End(Sender sender = nullptr);
    /// Drops what was uploaded, finished or not.
    void Abort(Sender sender = nullptr);

    /// Path of the finished upload of this name; "" when there is none.
    std::string Finished(const std::string& name) const;
    /// Drops the finished upload of this name.
    void Drop(const std::string& name);

private:
    struct Upload {
        Sender sender;
        std::string name;
        std::string path;
        std::ofstream out;
        std::size_t received = 0;
        bool finished = false;
    };
    using Uploads = std::list<Upload>;  ///< in the order of their beginnings

    Uploads::iterator Find(Sender sender);
    Uploads::const_iterator FindFinished(const std::string& name) const;
    Upload& Receiving(Sender sender, const char* refusal);
    void Drop(Uploads::const_iterator upload);
    void ClearSlot(int slot) const;

    std::string folder_;
    std::optional<lumarin::platform::FileLock> lock_;
    int slot_ = 0;
    int serial_ = 0;
    Uploads uploads_;
};

}  // namespace host
