#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "base/FileSystem.h"
#include "base/Files.h"
#include "hostile/Corpus.h"
#include "platform_vips/Samples.h"
#include "reliability/Workplace.h"

namespace lumarin::hostile {

inline const std::string Good = "100123";

struct ListingsFolder : testing::TemporaryFolder {
    ListingsFolder() { reliability::Workplace::AddListings(Path(), {Good, "100124"}); }
};

/// Makes what the system has besides files and folders; `path` gives a path for a name and takes it down.
void MakeThingsThatAreNotFiles(const std::function<std::string(const std::string&)>& path,
                               const std::string& ending);

/// An agent with one photo of listing 100123, and then all that can go wrong besides.
class SweepTest : ListingsFolder, public ::testing::Test, protected reliability::Workplace {
protected:
    SweepTest() : Workplace(Path()) {
        files::EnsureFolder(incoming);
        desktop.BeLenient([this](Form& form) {
            if (auto* crop = dynamic_cast<frmPhotoCrop*>(&form)) {
                crop->hsbControl(0).SetValue(100);
                crop->cmdCenterWidth.Press();
            }
            Play(form);
        });
        Write(incoming + "good.png", samples::Encode(samples::Detailed(480, 300), ".png"));
    }

    static void Write(const std::string& path, const std::string& bytes) { files::WriteWhole(path, bytes); }

    void GivenGoodPhoto() {
        Open();
        Load(Good);
        window->PhotoList.DropFiles({incoming + "good.png"});
        ASSERT_EQ(window->PhotoList.Count(), 1);
        goodPhoto = files::ReadAll(working + Good + "a.jpg");
    }

    /// The file under every strange name, things that are not files, and nothing at all.
    std::vector<std::string> StrangePaths(const std::string& file, const std::string& ending) const {
        std::vector<std::string> paths;
        const auto path = [&](const std::string& name) { return paths.emplace_back(incoming + name); };
        std::error_code notTaken;  // by the system: there is nothing then, or something else, of that name
        for (const std::string& name : Names())
            std::filesystem::copy_file(file, files::ToPath(path(name)), notTaken);
        std::filesystem::create_directory(path("100123 folder" + ending));
        MakeThingsThatAreNotFiles(path, ending);
        path("100123 gone" + ending);
        return paths;
    }

    /// Runs one attempt and says how many messages there were.
    std::size_t MessagesOf(const std::function<void()>& attempt) {
        const std::size_t messages = desktop.messages.size();
        attempt();
        return desktop.messages.size() - messages;
    }

    /// Something comes of it or a message says why not, it can be worked with, and the good photo stays.
    void Try(const std::string& name, const std::function<void()>& attempt) {
        SCOPED_TRACE(name);
        const std::size_t messages = MessagesOf(attempt);
        const auto grew = [&] { return window->PhotoList.Count() > 1 || window->RecList.Count() > 1; };
        EXPECT_TRUE(grew() || messages > 0) << "neither a photo nor a message";
        MessagesOf([&] {
            while (window->PhotoList.Count() > 0 && grew()) {
                window->PhotoList.Select(window->PhotoList.Count() - 1);
                window->PhotoList.DoubleClicked();
                window->Menu.ClickTool("Copy");
                window->Menu.ClickTool(window->RecList.Count() > 1 ? "RemoveEntry" : "DeletePhoto");
            }
        });
        EXPECT_TRUE(files::ReadAll(working + Good + "a.jpg") == goodPhoto);
    }

    std::string AtServer() {
        const std::string path = host.common.ListingServer().PhotoFile(100123, 1);
        return path.empty() ? "" : files::ReadAll(path);
    }

    const std::string incoming = folder + "incoming/", working = folder + "user/Photo Import/";
    std::string goodPhoto;
};

}  // namespace lumarin::hostile
