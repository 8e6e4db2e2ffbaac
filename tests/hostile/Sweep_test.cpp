#include "base/Text.h"
#include "hostile/SweepTest.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"

namespace lumarin {

using hostile::Sample;
using Sweep = hostile::SweepTest;
using hostile::Good;

TEST_F(Sweep, Pictures_DroppedAndUsed_GiveAPhotoOrAMessage) {
    GivenGoodPhoto();
    const std::string path = incoming + "strange.jpg";
    for (const auto& [name, bytes] : hostile::Pictures()) {
        Write(path, bytes);
        Try(name, [&] { window->PhotoList.DropFiles({path}); });
    }
    window->cmdSend.Press();
    EXPECT_TRUE(AtServer() == goodPhoto);
    EXPECT_EQ(window->RecList.Count(), 0);
}

TEST_F(Sweep, NamesAndThingsThatAreNoFiles_EveryWayIn_GiveAPhotoOrAMessage) {
    GivenGoodPhoto();
    for (const std::string& path : StrangePaths(incoming + "good.png", ".jpg")) {
        for (const char* tool : {"Open", "SmartLoad"}) {
            desktop.Choose(path);
            Try(tool + path, [&] { window->Menu.ClickTool(tool); });
        }
        Try("drop " + path, [&] { window->RecList.DropFiles({path}); });
        desktop.clipboardFiles = {path};
        Try("paste " + path, [&] { window->Menu.ClickTool("Paste"); });
    }
}

TEST_F(Sweep, WorkingFolder_FullOfStrangeFiles_KeepsThemAndSendsTheRest) {
    GivenGoodPhoto();
    window->Unload();
    ListingState state;
    state.PhotoCount = 2;
    std::map<std::string, std::string> strange;
    int number = 200000;
    for (const Sample& sample : hostile::Damaged("state", state_file::Encode(state)))
        for (const char* ending : {".dat", ".jnl"})
            strange[std::to_string(++number) + ending] = sample.second;
    const std::string stateBytes = files::ReadAll(working + Good + ".dat");
    for (const char* name :
         {"abc.dat", ".dat", "0.dat", "-5.dat", "99999999999.dat", "100999.dat", "1e3.dat", "300000.jnl"})
        strange[name] = stateBytes;
    for (const char* name :
         {"100123z.jpg", "100124A.jpg", "100123aa.jpg", "200001a.jpg", "100123b.tmp", "x.part", "x.zip"})
        strange[name] = "strange";
    for (const auto& [name, bytes] : strange) Write(working + name, bytes);
    std::filesystem::create_directory(working + "100777.dat");
    std::filesystem::create_directory(working + "100124b.jpg");

    Open();
    EXPECT_NE(desktop.messages.back().text.find("abc.dat"), std::string::npos);
    std::set<std::string> taken;
    for (int row = 0; row < window->RecList.Count(); ++row) {
        taken.insert(window->RecList.At(row).text);
        window->RecList.Select(row);
        window->PhotoList.DropFiles({incoming + "good.png"});
    }
    window->cmdSend.Press();
    for (int row = window->RecList.Count() - 1; row >= 0; --row) {
        window->RecList.Select(row);
        if (window->RecList.At(row).text != Good) window->cmdRemove.Press();
    }
    window->RecList.Select(0);
    window->PhotoList.Select(1);  // what became of the file that was just changing places
    window->Menu.ClickTool("DeletePhoto");
    window->cmdSend.Press();
    EXPECT_EQ(window->RecList.Count(), 0);
    EXPECT_TRUE(AtServer() == goodPhoto);
    for (const auto& [name, bytes] : strange) {
        const bool unreadable = name.ends_with(".dat") && !taken.contains(name.substr(0, name.size() - 4));
        const bool foreign = !listing_files::ListingOf(name);
        EXPECT_TRUE(!(unreadable || foreign) || files::ReadAll(working + "Set aside/" + name) == bytes)
            << name;
    }
}

TEST_F(Sweep, Settings_Strange_WindowWorksOrSaysWhatIsWrong) {
    const std::string usual = files::ReadAll(folder + "city/CityInfo.ini");
    std::vector<Sample> contents = hostile::Damaged("CityInfo.ini", usual);
    for (const char* line :
         {"Photo Size=", "Photo Size=0,0,0,0,0", "Photo Size=-1,-1,35,35000,4",
          "Photo Size=2147483647,2147483647,35,0,4", "Photo Size=99999,99999,35,35000,4",
          "Photo Size=480,300,999999,35000,4", "Photo Size=480,300,35,35000,4,<b>&%s</b>", "Photo Size=x",
          "Photo Maximum=-5", "Photo Maximum=2147483648", "SortNames=zzz", "FilePreview=\xFF"})
        contents.emplace_back(line, std::string("[Lumarin]\n") + line);
    contents.emplace_back("a long line", "[Lumarin]\nPhoto Size=" + std::string(1'000'000, '9'));
    contents.emplace_back("many sections", text::ReplaceAll(std::string(20'000, '['), "[", "[Lumarin\n"));
    for (const auto& [name, bytes] : contents) {
        SCOPED_TRACE(name);
        Write(folder + "city/CityInfo.ini", bytes);
        Write(folder + "user/User.ini",
              bytes + "\n[Photos]\nDefault Import Dir=\x01/\nStart Up Position=1e300,nan\n");
        Open();
        const std::size_t messages = desktop.messages.size();
        if (window == nullptr) {
            EXPECT_FALSE(LastMessage().empty());
            continue;
        }
        Load(Good);
        window->PhotoList.DropFiles({incoming + "good.png"});
        EXPECT_TRUE(window->PhotoList.Count() > 0 || desktop.messages.size() > messages);
        window->Menu.ClickTool("FilePreview");
        window->Menu.ClickTool("RemoveEntry");
        window->Unload();
    }
}

}  // namespace lumarin
