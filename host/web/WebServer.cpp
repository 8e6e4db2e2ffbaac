#include "host/web/WebServer.h"

#include <httplib.h>
#include <QFile>

#include <algorithm>
#include <cctype>
#include <charconv>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "host/database/Schema.h"
#include "host/server/Server.h"

// Outside of any namespace, as the toolkit wants it.
static void UseTutorialResource() { Q_INIT_RESOURCE(lumarin_tutorials); }

namespace host {

namespace {

constexpr int MethodNotAllowed = 405;
constexpr int MisdirectedRequest = 421;
constexpr int NotFound = 404;
constexpr int InternalError = 500;

/// A browser may hold connections open that it does not use; the program's end waits no longer for them.
constexpr int IdleSeconds = 1;
constexpr std::size_t Threads = 4;

constexpr struct {
    const char* path;
    const char* type;
} HelpPages[] = {{"/Tutorials/DocManager/DocManager.htm", "text/html; charset=utf-8"},
                 {"/Tutorials/DocManager/CreatePDF.htm", "text/html; charset=utf-8"},
                 {"/Tutorials/help.css", "text/css; charset=utf-8"}};

/// A page of the internet whose name leads to this machine must not read the documents through a browser.
bool IsThisMachine(const std::string& hostAndPort) {
    std::string name = hostAndPort.substr(0, hostAndPort.find(':'));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return name == "localhost" || name.ends_with(".localhost") || name == "127.0.0.1";
}

void Refuse(httplib::Response& response, int status, const char* reason) {
    response.status = status;
    response.set_content(reason, "text/plain");
}

}  // namespace

WebServer::WebServer(const std::string& dataFolder, const std::string& userCode)
    : database_(DatabasePath(dataFolder)),
      store_(Server::DocumentFolder(dataFolder), userCode),
      server_(std::make_unique<httplib::Server>()) {
    UseTutorialResource();
    server_->new_task_queue = [] { return new httplib::ThreadPool(Threads); };
    server_->set_socket_options([](auto) {});  // the library's own would share the port with another program
    // One request per connection: the body of a refused one is not taken for the next.
    server_->set_keep_alive_max_count(1).set_keep_alive_timeout(IdleSeconds).set_read_timeout(IdleSeconds);
    server_->set_default_headers({{"X-Content-Type-Options", "nosniff"}, {"Cache-Control", "no-cache"}});
    server_->set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
        Answer(request, response);
        return httplib::Server::HandlerResponse::Handled;
    });
    port_ = std::max(server_->bind_to_any_port("127.0.0.1"), 0);
    if (port_ == 0) return;
    listening_ = std::thread([this] { server_->listen_after_bind(); });
    while (!server_->is_running()) std::this_thread::yield();  // before that it could not be stopped
}

WebServer::~WebServer() {
    server_->stop();
    if (listening_.joinable()) listening_.join();
}

void WebServer::Answer(const httplib::Request& request, httplib::Response& response) const {
    if (request.method != "GET" && request.method != "HEAD") {
        response.set_header("Allow", "GET, HEAD");
        return Refuse(response, MethodNotAllowed, "Only GET and HEAD\n");
    }
    if (!IsThisMachine(request.get_header_value("Host")))
        return Refuse(response, MisdirectedRequest, "Not this machine\n");
    try {
        // As it was sent: the library's own path has been decoded.
        const Page page = Find(request.target.substr(0, request.target.find_first_of("?#")));
        if (page.type.empty()) return Refuse(response, NotFound, "There is no such page\n");
        response.status = 200;
        response.set_content(page.bytes, page.type);
    } catch (const std::exception&) {
        Refuse(response, InternalError, "The documents cannot be read now\n");
    }
}

WebServer::Page WebServer::Find(const std::string& path) const {
    for (const auto& help : HelpPages) {
        if (path != help.path) continue;
        QFile file(":" + QString(help.path));
        file.open(QIODevice::ReadOnly);
        return {help.type, file.readAll().toStdString()};
    }
    return FindDocument(path);
}

/// Only the one way to write a document's address leads to it, so no path needs to be made sense of.
WebServer::Page WebServer::FindDocument(const std::string& path) const {
    const std::string name = path.substr(path.rfind('/') + 1);
    const std::size_t bar = std::min(name.find('_'), name.size());
    const auto listing = lumarin::ParseListingNumber(name.substr(0, bar));
    std::int64_t document = 0;
    std::from_chars(name.data() + std::min(bar + 1, name.size()), name.data() + name.size(), document);
    if (!listing || path != store_.Address(*listing, document)) return {};
    Database database(database_, DatabaseUse::Queries);
    if (!IsFileDocument(database, *listing, document)) return {};
    try {
        return {"application/pdf", lumarin::files::ReadAll(store_.Path(*listing, document))};
    } catch (const lumarin::FileError&) {
        return {};  // deleted just now
    }
}

}  // namespace host
