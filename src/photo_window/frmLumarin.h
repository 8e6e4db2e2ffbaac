#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "entry/HostLink.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "forms/ListView.h"
#include "forms/ToolBar.h"
#include "imaging/Imaging.h"
#include "photo_window/ZipArchiver.h"

namespace lumarin {

/// The ports that the photo window works with; all outlive it.
struct PhotoWindowPorts {
    Desktop& desktop;
    Imaging& imaging;
    ZipArchiver& archiver;
    const Clock& clock;
    HostLink& host;
};

class frmLumarin : public Form {
public:
    explicit frmLumarin(const PhotoWindowPorts& ports);

    TextBox txtID{*this, "txtID"};
    Button cmdAdd{*this, "cmdAdd"}, cmdBrowse{*this, "cmdBrowse"}, cmdRemove{*this, "cmdRemove"};
    Button cmdSend{*this, "cmdSend"};
    ControlArray<Button, 2> cmdMove{*this, "cmdMove"};  ///< 0 moves the photo up, 1 down
    ListView RecList{*this, "RecList"}, PhotoList{*this, "PhotoList"};
    PictureBox imgMain{*this, "imgMain"};
    Label lblPhotos{*this, "lblPhotos"};  ///< how many photos of how many the listing has
    ToolBar Menu{*this, "Menu"};
};

}  // namespace lumarin
