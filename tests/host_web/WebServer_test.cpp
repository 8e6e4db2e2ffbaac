#include "host/web/WebServer.h"

#include <QTcpSocket>

#include "host_server/ServerTest.h"

namespace host {

/// Listing 1001 with a file and a link.
class WebServerTest : public ServerTest {
protected:
    WebServerTest() {
        const DocumentSender agent{"VELTRANE", "A101", 100, {}, "", 100};
        Upload(*server_, "u.pdf", "%PDF-1.4 page");
        server_->ApplyDocument("ADD|VELTRANE|A101|1001|u.pdf|Plan", agent);
        server_->ApplyDocument("ADD|VELTRANE|A101|1001||Link|http://example.org", agent);
    }

    /// The whole answer to a request line, sent as it stands.
    QByteArray Ask(const QByteArray& request, const QByteArray& host = "Docs.localhost:1") const {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, static_cast<quint16>(web_.Port()));
        socket.write(request + " HTTP/1.1\r\nHost: " + host + "\r\nConnection: close\r\n\r\n");
        while (socket.waitForReadyRead(-1)) {
        }
        return socket.readAll();
    }

    WebServer web_{folder_.Path(), "VELTRANE"};
};

TEST_F(WebServerTest, DocumentsAndHelpPages_AreThereAtTheirAddresses) {
    const QByteArray document = Ask("GET /VELTRANE/Docs/0/1/1001_1.pdf");
    EXPECT_TRUE(document.contains("Content-Type: application/pdf\r\n")) << document.constData();
    EXPECT_TRUE(document.endsWith("\r\n\r\n%PDF-1.4 page"));
    const QByteArray head = Ask("HEAD /VELTRANE/Docs/0/1/1001_1.pdf");
    EXPECT_TRUE(head.contains("Content-Length: 13\r\n")) << head.constData();
    EXPECT_TRUE(head.endsWith("\r\n\r\n"));
    for (const char* page : {"DocManager", "CreatePDF"}) {
        const QByteArray help = Ask("GET /Tutorials/DocManager/" + QByteArray(page) + ".htm", "127.0.0.1:1");
        EXPECT_TRUE(help.contains("Content-Type: text/html; charset=utf-8\r\n")) << page;
        EXPECT_TRUE(help.contains("href=\"/Tutorials/help.css\"") && help.contains("</html>")) << page;
    }
    EXPECT_TRUE(Ask("GET /Tutorials/help.css").contains("text/css"));
}

TEST_F(WebServerTest, AnythingElse_IsRefused) {
    const struct {
        const char* request;
        const char* status;
        const char* host = "docs.localhost";
    } cases[] = {
        {"GET /VELTRANE/Docs/0/1/1001_2.pdf", "404"},  // a link
        {"GET /VELTRANE/Docs/0/1/1001_01.pdf", "404"},
        {"GET /VELTRANE/Docs/1/0/1001_1.pdf", "404"},
        {"GET /VELTRANE/Docs/0/1/%31001_1.pdf%00", "404"},
        {"GET /%2e%2e/%2e%2e/host.db", "404"},
        {"POST /VELTRANE/Docs/0/1/1001_1.pdf", "405"},
        {"GET /VELTRANE/Docs/0/1/1001_1.pdf", "421", "evil.example:80"},
        {"GET /VELTRANE/Docs/0/1/1001_1.pdf", "421", "localhost.example"},
    };
    for (const auto& row : cases)
        EXPECT_TRUE(Ask(row.request, row.host).startsWith(QByteArray("HTTP/1.1 ") + row.status + " "))
            << row.request << Ask(row.request, row.host).constData();
}

}  // namespace host
