#pragma once

#include <memory>
#include <vector>

#include "documents/frmAddDocument.h"
#include "documents/frmPromptLinkText.h"
#include "imaging/frmAcquire.h"
#include "imaging/frmPhotoCrop.h"
#include "imaging/frmPhotoViewer.h"
#include "imaging/frmSelectSource.h"
#include "lookup/frmFindProperty.h"
#include "lookup/frmListnumPrompt.h"
#include "photo_window/frmImport.h"
#include "photo_window/frmLumarin.h"
#include "support/FakeArchiver.h"
#include "support/FakeHost.h"
#include "support/FakeImaging.h"
#include "support/FakePdfLibrary.h"
#include "support/FakeTransfer.h"
#include "util/frmBusy.h"
#include "util/frmFTP.h"
#include "util/frmProgress.h"
#include "verify/frmVerifyPhotos.h"

namespace lumarin::testing {

/// A form of each window, with ports that nobody asks anything.
class EveryWindow {
public:
    explicit EveryWindow(Desktop& desktop) : desktop_(desktop) { host_.Set(common_); }

    std::vector<std::unique_ptr<Form>> Make() {
        const JobPorts ports{{desktop_, host_, engine_}, imaging_, clock_};
        std::vector<std::unique_ptr<Form>> forms;
        forms.push_back(std::make_unique<frmLumarin>(PhotoWindowPorts{ports, archiver_}));
        forms.push_back(std::make_unique<frmPhotoCrop>(desktop_, imaging_));
        forms.push_back(std::make_unique<frmProgress>(desktop_, clock_, host_));
        forms.push_back(std::make_unique<frmImport>(desktop_));
        forms.push_back(std::make_unique<frmBusy>(desktop_));
        forms.push_back(std::make_unique<frmFTP>(desktop_, clock_, host_, ftp_));
        forms.push_back(std::make_unique<frmFindProperty>(ports));
        forms.push_back(std::make_unique<frmListnumPrompt>(ports));
        forms.push_back(std::make_unique<frmVerifyPhotos>(desktop_, host_));
        forms.push_back(std::make_unique<frmPhotoViewer>(desktop_));
        forms.push_back(std::make_unique<frmSelectSource>(desktop_));
        forms.push_back(std::make_unique<frmAcquire>(desktop_));
        forms.push_back(std::make_unique<frmAddDocument>(DocumentPorts{ports, pdf_}));
        forms.push_back(std::make_unique<frmMakePDF>(DocumentPorts{ports, pdf_}));
        forms.push_back(std::make_unique<frmPromptLinkText>(desktop_));
        return forms;
    }

private:
    Desktop& desktop_;
    FakeImaging imaging_;
    FakePdfLibrary pdf_;
    FakeArchiver archiver_;
    SystemClock clock_;
    FakeHost common_;
    HostLink host_;
    FakeTransfer ftp_;
    NoEngineVersion engine_;
};

}  // namespace lumarin::testing
