#pragma once

#include <gtest/gtest.h>

#include <chrono>

#include "base/Files.h"
#include "host/database/Schema.h"
#include "host_services/HostFixture.h"
#include "photo_window/frmLumarin.h"
#include "platform/vips/VipsImaging.h"
#include "platform/zip/LibzipArchiver.h"
#include "platform_vips/Samples.h"
#include "support/ScriptedDesktop.h"

namespace lumarin::hostile {

inline constexpr auto Patience = std::chrono::seconds(5);
inline const std::string Good = "100123";

/// An agent with one photo of listing 100123, and then all that can go wrong beside it.
class SweepTest : public ::testing::Test {
protected:
    SweepTest() : host({.dataFolder = folder.Path()}) {
        host::Database database(host::DatabasePath(folder.Path()), host::DatabaseUse::Changes);
        host::EnsureSchema(database);
        database.Run(
            "INSERT INTO Listings (ListNum, StreetName, ListAgentId)"
            " VALUES (100123, 'Oak', 'A101'), (100124, 'Elm', 'A101')");
        link.Set(host.common);
        files::EnsureFolder(incoming);
        desktop.BeLenient([](Form& form) {
            if (form.Name() != "frmPhotoCrop") return;
            auto& crop = static_cast<frmPhotoCrop&>(form);
            crop.hsbControl(0).SetValue(100);
            crop.cmdCenterWidth.Press();
            crop.cmdCapture.Press();
            if (crop.IsShown()) crop.cmdCancel.Press();
        });
        Write(incoming + "good.png", samples::Encode(samples::Detailed(480, 300), ".png"));
    }

    static void Write(const std::string& path, const std::string& bytes) { files::WriteWhole(path, bytes); }

    void Open() {
        window =
            std::make_unique<frmLumarin>(PhotoWindowPorts{desktop, imaging, archiver, clock, link, engine});
        window->Init(1);
        window->Show(nullptr);
    }
    void GivenGoodPhoto() {
        Open();
        window->txtID.SetText(Good);
        window->txtID.PressKey(13);
        window->PhotoList.DropFiles({incoming + "good.png"});
        ASSERT_EQ(window->PhotoList.Count(), 1);
        goodPhoto = files::ReadAll(working + Good + "a.jpg");
    }

    /// Runs one attempt: something comes of it or a message says why not, soon, and the good photo stays.
    void Try(const std::string& name, const std::function<void()>& attempt) {
        SCOPED_TRACE(name);
        const std::size_t messages = desktop.messages.size();
        const auto start = std::chrono::steady_clock::now();
        attempt();
        const bool grew = window->PhotoList.Count() > 1 || window->RecList.Count() > 1;
        EXPECT_TRUE(grew || desktop.messages.size() > messages) << "neither a photo nor a message";
        while (window->PhotoList.Count() > 0 &&
               (window->RecList.Count() > 1 || window->PhotoList.Count() > 1)) {
            window->PhotoList.Select(window->PhotoList.Count() - 1);
            window->PhotoList.DoubleClicked();
            window->Menu.ClickTool("Copy");
            if (window->RecList.Count() > 1) {
                window->cmdRemove.Press();
            } else {
                window->Menu.ClickTool("DeletePhoto");
            }
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, Patience);
        EXPECT_TRUE(files::ReadAll(working + Good + "a.jpg") == goodPhoto);
    }

    void Send() { window->cmdSend.Press(); }
    std::string AtServer(int photo = 1) {
        const std::string path = host.common.ListingServer().PhotoFile(100123, photo);
        return path.empty() ? "" : files::ReadAll(path);
    }

    testing::TemporaryFolder folder;
    host::TestHost host;
    HostLink link;
    testing::ScriptedDesktop desktop;
    vips::VipsImaging imaging;
    zip::LibzipArchiver archiver;
    SystemClock clock;
    NoEngineVersion engine;
    std::unique_ptr<frmLumarin> window;
    const std::string incoming = folder.Path() + "incoming/", working = folder.Path() + "user/Photo Import/";
    std::string goodPhoto;
};

}  // namespace lumarin::hostile
