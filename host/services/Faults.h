#pragma once

#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "entry/Services.h"

namespace host {

/// What goes wrong with a call of the host's services.
enum class FaultKind {
    Fail,       ///< the server is not reached
    Stall,      ///< there is no answer; after a while the connection is given up
    LoseReply,  ///< the server does what it is asked, but its answer is lost
};

/// The calls that can go wrong.
enum class HostCall {
    Query,  ///< `DbInterface::Execute`
    Begin,  ///< `PhotoInterface::UploadPhotoFile`, by its form
    Chunk,
    End,
    Abort,
    Apply,    ///< `PhotoInterface::BatchUpdate`
    Command,  ///< `DocInterface::Update`
    Fetch,    ///< `VelCommon::FetchPhoto`
    Any,      ///< all of them, counted together
};

/// Which calls go wrong, and how: for trying out what the component makes of a bad connection. Calls are
/// counted from 1 since the script was made or changed.
class FaultScript {
public:
    using Milliseconds = std::chrono::milliseconds;

    /// Nothing goes wrong.
    FaultScript() = default;
    /// Reads "chunk 3 lose; query 2 fail; any 7+ stall": a call, which one of its kind, and what happens to
    /// it, with ";" between; "+" stands for that one and all later ones. Throws lumarin::Error, naming what
    /// cannot be understood.
    static FaultScript Parse(const std::string& text);

    /// How long a stalled call waits before it is given up.
    void SetPatience(Milliseconds patience) { patience_ = patience; }
    int Calls(HostCall call) const;

    /// Does a step, unless the script has it go wrong: that throws lumarin::Error.
    template <class Step>
    auto Do(HostCall call, Step step) {
        const std::optional<FaultKind> fault = Next(call);
        if (!fault) return step();
        if (*fault == FaultKind::LoseReply) step();
        Break(*fault);
    }

private:
    struct Fault {
        HostCall call = HostCall::Any;
        int number = 1;
        bool onwards = false;
        FaultKind kind = FaultKind::Fail;
    };

    static Fault ParseOne(const std::string& text);
    std::optional<FaultKind> Next(HostCall call);
    [[noreturn]] void Break(FaultKind kind) const;

    std::vector<Fault> faults_;
    std::map<HostCall, int> calls_;
    Milliseconds patience_{5'000};
};

/// The service with the faults of the script, which outlives it.
std::unique_ptr<lumarin::HostService> WithFaults(std::unique_ptr<lumarin::HostService> service,
                                                 FaultScript& faults);

}  // namespace host
