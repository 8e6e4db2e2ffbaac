#include "host/drive/Driver.h"

#include <QEventLoop>
#include <QJsonArray>

#include "base/Error.h"
#include "platform_qt/EveryKindForm.h"

// How the commands work the program's windows is tested by program.sh.

namespace host {

using namespace lumarin;

class DriverTest : public lumarin::testing::EveryKindTest {
protected:
    QJsonValue Answered(const QString& command) {
        QJsonValue given;
        QEventLoop loop;
        driver.Submit(command, [&](const QJsonValue& answer) {
            given = answer;
            loop.quit();
        });
        loop.exec();
        return given;
    }

    Driver driver;
};

TEST_F(DriverTest, Browser_WebAddressesOfTheProgram_AreWrittenDownAndNothingElseIsOpened) {
    // An address and what is opened, "" where it is refused.
    const std::pair<const char*, const char*> cases[] = {
        {"http://example.org/a b?c=%20d", "http://example.org/a%20b?c=%20d"},
        {"www.example.org:8080/x", "http://www.example.org:8080/x"},
        {"Docs.localhost:81\\VELTRANE\\Docs\\4\\5\\12345_17.pdf",
         "http://docs.localhost:81/VELTRANE/Docs/4/5/12345_17.pdf"},
        {"file:///etc/passwd", ""},
        {"javascript:alert(1)", ""},
        {"http://", ""},
    };
    QStringList expected;
    for (const auto& [address, opened] : cases) {
        if (*opened != '\0') {
            desktop.OpenInBrowser(address);
            expected += opened;
        } else {
            EXPECT_THROW(desktop.OpenInBrowser(address), Error) << address;
        }
    }
    EXPECT_THROW(desktop.OpenDocument("/no/such.pdf"), Error);
    EXPECT_EQ(Answered("browser")["opened"], QJsonArray::fromStringList(expected));
}

}  // namespace host
