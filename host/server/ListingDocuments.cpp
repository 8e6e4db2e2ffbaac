#include "host/server/ListingDocuments.h"

#include <algorithm>
#include <optional>

#include "base/Files.h"
#include "entry/UserScope.h"
#include "host/server/Digest.h"
#include "host/server/Refusal.h"

namespace host {

namespace {

namespace files = lumarin::files;
using lumarin::UserScope;

constexpr const char* AnyDigest = "";

struct Owner {
    std::string agent;
    std::string office;
    std::string board;
};

std::optional<Owner> OwnerOf(Database& database, std::int32_t listing) {
    Statement row(database,
                  "SELECT ListAgentId, ListOfficeId, BoardId FROM Listings WHERE ListNum = ?1 UNION ALL "
                  "SELECT ListAgentId, ListOfficeId, BoardId FROM Rentals WHERE ListNum = ?1");
    if (!row.Bind(1, std::int64_t{listing}).Step()) return std::nullopt;
    return Owner{row.Text(0), row.Text(1), row.Text(2)};
}

bool MayChange(const Owner& owner, const DocumentSender& sender) {
    switch (lumarin::ScopeOf(sender.level)) {
        case UserScope::Unrestricted:
            return true;
        case UserScope::Board:
            return owner.board == sender.board;
        case UserScope::Office:
            return std::find(sender.offices.begin(), sender.offices.end(), owner.office) !=
                   sender.offices.end();
        case UserScope::Agent:
            break;
    }
    return owner.agent == sender.agent;
}

void RequirePdf(const std::string& path, std::int64_t largest) {
    files::Reader file(path);
    if (file.Length() > static_cast<std::uint64_t>(std::max<std::int64_t>(largest, 0)))
        throw Refusal("The file has " + std::to_string(file.Length()) + " bytes; " + std::to_string(largest) +
                      " are allowed");
    constexpr std::string_view Mark = "%PDF-";
    if (file.Length() <= Mark.size() || file.Read(Mark.size()) != Mark)
        throw Refusal("The uploaded file is not in PDF format");
}

}  // namespace

void ListingDocuments::Apply(const std::string& line, const DocumentSender& sender) {
    const DocumentCommand command = ParseDocumentCommand(line);
    if (command.userCode != sender.userCode)
        throw Refusal("There is no user code \"" + command.userCode + "\"");
    if (command.agent != sender.agent) throw Refusal("\"" + command.agent + "\" is not signed in");
    switch (command.kind) {
        case DocumentCommand::Kind::AddFile:
            return AddFile(command, sender);
        case DocumentCommand::Kind::AddLink:
            return AddLink(command, sender);
        case DocumentCommand::Kind::Delete:
            return Delete(line, command, sender);
    }
}

void ListingDocuments::AddFile(const DocumentCommand& command, const DocumentSender& sender) {
    const std::string upload = uploads_.Finished(command.upload);
    const std::string digest = upload.empty() ? AnyDigest : DigestOf(upload);
    try {
        Transaction transaction(database_);
        RequireOwn(command.listing, sender);
        if (!TakeAsRepeated(command, digest)) {
            if (upload.empty()) throw Refusal("No file " + command.upload + " was uploaded");
            RequirePdf(upload, sender.largestFile);
            Publish(command, upload, digest);
        }
        transaction.Commit();
    } catch (const Refusal&) {
        uploads_.Drop(command.upload);  // Asking again cannot help; after other failures it can.
        throw;
    }
    uploads_.Drop(command.upload);
}

/// True when the listing has the file: its sender missed the answer, and may have described it again since.
bool ListingDocuments::TakeAsRepeated(const DocumentCommand& command, const std::string& digest) {
    Statement row(database_,
                  "UPDATE Documents SET DocDesc = ?1 WHERE DocID = (SELECT max(DocID) FROM Documents WHERE "
                  "DocListNum = ?2 AND DocUpload = ?3 AND ?4 IN ('', DocDigest)) RETURNING DocID");
    row.Bind(1, command.description).Bind(2, std::int64_t{command.listing}).Bind(3, command.upload);
    return row.Bind(4, digest).Step();
}

/// The file comes before the row counts; what a killed program leaves of it is deleted at the next start.
void ListingDocuments::Publish(const DocumentCommand& command, const std::string& upload,
                               const std::string& digest) {
    const std::int64_t document = InsertRow(command, files::FileLength(upload), digest);
    store_.Add(command.listing, document, upload);
}

void ListingDocuments::AddLink(const DocumentCommand& command, const DocumentSender& sender) {
    Transaction transaction(database_);
    RequireOwn(command.listing, sender);
    Statement same(database_, "SELECT 1 FROM Documents WHERE DocListNum = ? AND DocDesc = ? AND DocUrl = ?");
    same.Bind(1, std::int64_t{command.listing}).Bind(2, command.description).Bind(3, command.address);
    if (same.Step()) return;
    InsertRow(command, 0, AnyDigest);
    transaction.Commit();
}

void ListingDocuments::Delete(const std::string& line, const DocumentCommand& command,
                              const DocumentSender& sender) {
    Transaction transaction(database_);
    if (WasApplied(line)) return;
    Statement row(database_, "SELECT DocListNum FROM Documents WHERE DocID = ?");
    if (!row.Bind(1, command.document).Step())
        throw Refusal("There is no document " + std::to_string(command.document));
    const auto listing = static_cast<std::int32_t>(row.Integer(0));
    row.Finish();
    RequireOwn(listing, sender);
    Statement(database_, "DELETE FROM Documents WHERE DocID = ?").Bind(1, command.document).Finish();
    Remember(line);
    transaction.Commit();
    files::TryDelete(store_.Path(listing, command.document));  // A link has none.
}

void ListingDocuments::RequireOwn(std::int32_t listing, const DocumentSender& sender) {
    const std::optional<Owner> owner = OwnerOf(database_, listing);
    if (!owner) throw Refusal("There is no listing " + std::to_string(listing));
    if (!MayChange(*owner, sender))
        throw Refusal("Listing " + std::to_string(listing) + " does not belong to " + sender.agent);
}

std::int64_t ListingDocuments::InsertRow(const DocumentCommand& command, std::uint64_t bytes,
                                         const std::string& digest) {
    Statement row(database_,
                  "INSERT INTO Documents (DocListNum, DocDesc, DocUrl, DocFilesize, DocUpload, DocDigest) "
                  "VALUES (?, ?, ?, ?, ?, ?) RETURNING DocID");
    row.Bind(1, std::int64_t{command.listing}).Bind(2, command.description).Bind(3, command.address);
    row.Bind(4, static_cast<std::int64_t>(bytes)).Bind(5, command.upload).Bind(6, digest).Step();
    const std::int64_t document = row.Integer(0);
    row.Finish();
    return document;
}

std::string ListingDocuments::File(std::int32_t listing, std::int64_t document) {
    return IsFileDocument(database_, listing, document) ? store_.Path(listing, document) : std::string();
}

bool ListingDocuments::WasApplied(const std::string& line) {
    Statement found(database_, "SELECT 1 FROM AppliedCommands WHERE Command = ?");
    return found.Bind(1, line).Step();
}

void ListingDocuments::Remember(const std::string& line) {
    Statement(database_, "INSERT INTO AppliedCommands (Command, Digest) VALUES (?, '')")
        .Bind(1, line)
        .Finish();
    // A sender asks again soon or never.
    database_.Run(
        "DELETE FROM AppliedCommands WHERE Serial <= (SELECT max(Serial) FROM AppliedCommands) - 1000");
}

}  // namespace host
