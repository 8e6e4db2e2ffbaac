#include "host/web/WebServer.h"

#include <QFile>
#include <QHttpServer>
#include <QHttpServerResponder>
#include <QUrl>

#include <algorithm>
#include <charconv>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Numbers.h"

// Outside of any namespace, as the toolkit wants it.
static void UseTutorialResource() { Q_INIT_RESOURCE(lumarin_tutorials); }

namespace host {

namespace {

using Status = QHttpServerResponder::StatusCode;

constexpr struct {
    const char* path;
    const char* type;
} HelpPages[] = {{"/Tutorials/DocManager/DocManager.htm", "text/html; charset=utf-8"},
                 {"/Tutorials/DocManager/CreatePDF.htm", "text/html; charset=utf-8"},
                 {"/Tutorials/help.css", "text/css; charset=utf-8"}};

/// A page of the internet whose name leads to this machine must not read the documents through a browser.
bool IsThisMachine(const QByteArray& hostAndPort) {
    const QByteArray name = hostAndPort.split(':').front().toLower();
    return name == "localhost" || name.endsWith(".localhost") || name == "127.0.0.1";
}

void Write(QHttpServerResponder& responder, Status status, const QByteArray& type, const QByteArray& bytes,
           bool withBody) {
    responder.writeStatusLine(status);
    responder.writeHeader("Content-Type", type);
    responder.writeHeader("Content-Length", QByteArray::number(bytes.size()));
    responder.writeHeader("X-Content-Type-Options", "nosniff");
    responder.writeHeader("Cache-Control", "no-cache");
    if (status == Status::MethodNotAllowed) responder.writeHeader("Allow", "GET, HEAD");
    responder.writeBody(withBody ? bytes : QByteArray());
}

}  // namespace

WebServer::WebServer(Server& documents, std::string userCode)
    : documents_(documents), userCode_(std::move(userCode)), server_(std::make_unique<QHttpServer>()) {
    UseTutorialResource();
    server_->setMissingHandler([this](const QHttpServerRequest& request, QHttpServerResponder&& responder) {
        const auto method = request.method();
        const bool reads = method == QHttpServerRequest::Method::Get;
        if (!reads && method != QHttpServerRequest::Method::Head)
            return Write(responder, Status::MethodNotAllowed, "text/plain", "Only GET and HEAD\n", true);
        if (!IsThisMachine(request.value("Host")))
            return Write(responder, Status::MisdirectedRequest, "text/plain", "Not this machine\n", reads);
        const Page page = Find(request.url().path(QUrl::FullyEncoded).toStdString());
        if (page.type.empty())
            return Write(responder, Status::NotFound, "text/plain", "There is no such page\n", reads);
        Write(responder, Status::Ok, QByteArray::fromStdString(page.type),
              QByteArray::fromStdString(page.bytes), reads);
    });
    port_ = server_->listen(QHostAddress::LocalHost);
}

WebServer::~WebServer() = default;

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
    if (!listing) return {};
    const std::string file = documents_.DocumentFile(*listing, document);
    const std::string address = "/" + DocumentStore("", userCode_).Path(*listing, document);
    if (file.empty() || address != path) return {};
    try {
        return {"application/pdf", lumarin::files::ReadAll(file)};
    } catch (const lumarin::FileError&) {
        return {};  // deleted just now
    }
}

}  // namespace host
