#pragma once

#include <memory>
#include <string>
#include <thread>

#include "host/server/DocumentStore.h"

namespace httplib {
class Server;
struct Request;
struct Response;
}  // namespace httplib

namespace host {

/// Shows published documents and the help pages of the document windows to the browsers of this machine, at
/// the addresses that the component composes. Answers in threads of its own, with a database connection per
/// request, so a browser never waits for a window.
class WebServer {
public:
    /// Serves the documents of this data folder, which ends in a separator; `userCode` is a part of their
    /// addresses. Without a free port nothing is served and `Port` is 0.
    WebServer(const std::string& dataFolder, const std::string& userCode);
    /// Returns when the requests that are being answered have ended.
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    int Port() const { return port_; }

private:
    struct Page {
        std::string type;  ///< "" when there is no such page
        std::string bytes;
    };

    void Answer(const httplib::Request& request, httplib::Response& response) const;
    Page Find(const std::string& path) const;
    Page FindDocument(const std::string& path) const;

    std::string database_;
    DocumentStore store_;
    std::unique_ptr<httplib::Server> server_;
    std::thread listening_;
    int port_ = 0;
};

}  // namespace host
