#pragma once

#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/server/Refusal.h"
#include "host/server/Server.h"
#include "host_server/PackageBuilder.h"
#include "support/Reason.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>

namespace host {

using lumarin::testing::ReasonOf, lumarin::testing::Says;

/// A server in a folder of its own. The sale listing 1001 is an agent's own, 1002 another agent's of the same
/// board, the rental 5001 the first one's.
class ServerTest : public ::testing::Test {
protected:
    ServerTest() {
        Restart();
        Database(DatabasePath(folder_.Path()), DatabaseUse::Changes)
            .Run(
                "INSERT INTO Listings (ListNum, ListAgentId, ListOfficeId, BoardId) VALUES "
                "(1001, 'A101', 'OF1', 1), (1002, 'A202', 'OF2', 1);"
                "INSERT INTO Rentals (ListNum, ListAgentId, BoardId) VALUES (5001, 'A101', 2)");
    }

    void Restart() {
        server_.reset();
        server_.emplace(folder_.Path());
    }

    static void Upload(Server& server, const std::string& name, std::string_view bytes) {
        server.Uploads().Begin(name);
        server.Uploads().Append(std::as_bytes(std::span(bytes)));
        server.Uploads().End();
    }

    void Apply(const PackageBuilder& package, const std::string& name = "p.zip") {
        Upload(*server_, name, package.Bytes());
        server_->ApplyPackage(name);
    }

    /// 1001 with three photos of 100, 200 and 300 bytes.
    void GivenThreePhotos() {
        Apply(PackageBuilder()
                  .Listing(1001, {{"2110", ""}, {"2111", ""}, {"2115", ""}})
                  .Entry("1001a.jpg", TinyJpeg(100, 'a'))
                  .Entry("1001b.jpg", TinyJpeg(200, 'b'))
                  .Entry("1001c.jpg", TinyJpeg(300, 'c')));
    }

    /// "count|version|descriptions" of the listing's row; "" without one.
    std::string Row(int listing) {
        Database database(DatabasePath(folder_.Path()), DatabaseUse::Queries);
        Statement row(database, "SELECT PhotoCount, PhotoVersion, PhotoDesc FROM Photo WHERE PhoListNum = ?");
        if (!row.Bind(1, std::int64_t{listing}).Step()) return {};
        return row.Text(0) + "|" + row.Text(1) + "|" + row.Text(2);
    }

    /// The byte that tells each published photo apart, in order.
    std::string Photos(int listing) {
        std::string seeds;
        for (int position = 1; !server_->PhotoFile(listing, position).empty(); ++position)
            seeds += lumarin::files::ReadAll(server_->PhotoFile(listing, position))[20];
        return seeds;
    }

    std::size_t FilesIn(const std::string& folder) {
        return lumarin::files::List(folder_.Path() + folder, [](const std::string&) { return true; }).size();
    }
    std::size_t StoredFiles(int listing) { return FilesIn("server/photos/" + std::to_string(listing) + "/"); }
    std::size_t SpooledFiles() { return FilesIn("server/spool/"); }

    lumarin::testing::TemporaryFolder folder_;
    std::optional<Server> server_;
};

}  // namespace host
