#pragma once

#include <memory>
#include <string>

#include "host/server/Server.h"

class QHttpServer;

namespace host {

/// Shows published documents and the help pages of the document windows to the browsers of this machine, at
/// the addresses that the component composes. Answers while the program's events run; user-interface thread.
class WebServer {
public:
    /// `documents` outlives it. Without a free port nothing is served and `Port` is 0.
    WebServer(Server& documents, std::string userCode);
    ~WebServer();
    WebServer(const WebServer&) = delete;
    WebServer& operator=(const WebServer&) = delete;

    int Port() const { return port_; }

private:
    struct Page {
        std::string type;
        std::string bytes;
    };

    Page Find(const std::string& path) const;
    Page FindDocument(const std::string& path) const;

    Server& documents_;
    std::string userCode_;
    std::unique_ptr<QHttpServer> server_;
    int port_ = 0;
};

}  // namespace host
