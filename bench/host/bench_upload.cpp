// bench_upload DATA_FOLDER: uploads a document of 1 MB in chunks of 5120 bytes to the host's own server, as
// the document manager does, adds it and deletes it again. Prints the median and the slowest chunk in
// milliseconds, and the time of the two commands.

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "bench/host/BenchHost.h"
#include "host/database/Schema.h"

namespace {

constexpr std::size_t Length = 1'024'000;
constexpr std::size_t ChunkLength = 5120;
constexpr int Rounds = 20;

double Milliseconds(std::chrono::steady_clock::time_point since) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - since).count();
}

bool Refused(lumarin::DocInterface& documents, std::string command) {
    std::string reason;
    if (!documents.Update(command, reason)) return false;
    std::fprintf(stderr, "%s: %s\n", command.c_str(), reason.c_str());
    return true;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) return 2;
    BenchHost host(arguments[1]);
    host::Database(host::DatabasePath(std::string(arguments[1]) + "/"), host::DatabaseUse::Changes)
        .Run("INSERT OR IGNORE INTO Listings (ListNum, ListAgentId) VALUES (7001, 'A101')");
    const auto documents = lumarin::RequestService<lumarin::DocInterface>(host.common);
    const std::string pdf = "%PDF-" + std::string(Length - 5, 'x');
    std::vector<double> chunks;
    double commands = 0;
    for (int round = 1; round <= Rounds; ++round) {
        const auto upload = lumarin::RequestService<lumarin::PhotoInterface>(host.common);
        const std::string name = "bench" + std::to_string(round) + "Doc.pdf";
        upload->UploadPhotoFile(name, lumarin::UploadMode::Begin);
        for (std::size_t at = 0; at < pdf.size(); at += ChunkLength) {
            const auto start = std::chrono::steady_clock::now();
            upload->UploadPhotoFile(std::as_bytes(std::span(std::string_view(pdf).substr(at, ChunkLength))));
            chunks.push_back(Milliseconds(start));
        }
        upload->UploadPhotoFile("", lumarin::UploadMode::End);
        const auto start = std::chrono::steady_clock::now();
        if (Refused(*documents, "ADD|VELTRANE|A101|7001|" + name + "|Bench")) return 1;
        const auto rows = lumarin::RequestService<lumarin::DbInterface>(host.common)
                              ->Execute("VELTRANE", "SELECT DocID FROM Documents WHERE DocListNum = 7001;");
        if (Refused(*documents, "DELETE|VELTRANE|A101|" + rows->Field("DocID").Text())) return 1;
        commands += Milliseconds(start) / Rounds;
    }
    std::sort(chunks.begin(), chunks.end());
    std::printf("%.4f %.3f %.2f\n", chunks[chunks.size() / 2], chunks.back(), commands);
    return 0;
}
