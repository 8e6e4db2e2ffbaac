#pragma once

#include "host/services/HostVelCommon.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace host {

class NoMainForm final : public lumarin::HostMainForm {
public:
    void* NativeWindow() const override { return nullptr; }
    int Switch() const override { return 0; }
    void Prog(int, int) override {}
};

/// The host over a data folder.
struct TestHost {
    explicit TestHost(HostOptions options) : common(std::move(options), mainForm, {}) {}

    /// A column of every row, joined by blanks.
    std::string Keys(const std::string& sql, const char* column) {
        std::string keys;
        const auto rows = lumarin::RequestService<lumarin::DbInterface>(common)->Execute("VELTRANE", sql);
        for (; !rows->Eof(); rows->MoveNext()) keys += (keys.empty() ? "" : " ") + rows->Field(column).Text();
        return keys;
    }

    NoMainForm mainForm;
    HostVelCommon common;
};

}  // namespace host
