#include "host/drive/BrowserRecord.h"

#include <QDesktopServices>

namespace host {

namespace {

constexpr const char* Schemes[] = {"http", "https", "file"};
BrowserRecord* current = nullptr;

}  // namespace

BrowserRecord::BrowserRecord() {
    current = this;
    for (const char* scheme : Schemes) QDesktopServices::setUrlHandler(scheme, this, "Open");
}

BrowserRecord::~BrowserRecord() {
    for (const char* scheme : Schemes) QDesktopServices::unsetUrlHandler(scheme);
    current = nullptr;
}

QStringList BrowserRecord::Opened() { return current != nullptr ? current->opened_ : QStringList(); }

}  // namespace host
