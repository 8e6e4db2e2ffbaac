#include "imaging/frmPhotoCrop.h"

#include <cmath>

#include "imaging/Tones.h"
#include "support/WindowTest.h"

namespace lumarin {

class PhotoCrop : public testing::WindowTest {
protected:
    PhotoCrop() {
        files::EnsureFolder(folder);
        window.SetPhotoSize("480, 300,35,35000,not read");
        window.Shape1.Placed({0, 0, 8400, 6000});
        GivenFile("wide.jpg", 640, 400);  // its preview is 4800 x 3000 twips at (1800, 1500)
    }

    void GivenFile(const std::string& name, int width, int height, bool jpeg = true,
                   const std::string& bytes = "photo\xFF\xD9") {
        files::WriteWhole(folder + name, bytes);
        imaging.pictures[folder + name] = {width, height, jpeg};
    }
    /// Opens the window on a file and lets the user do `play`, who cancels in the end if it is still open.
    PhotoResult Crop(const std::string& name, const std::function<void()>& play,
                     CropMode mode = CropMode::File) {
        if (play)
            desktop.Play("frmPhotoCrop", [&](Form&) {
                play();
                if (window.IsShown()) window.cmdCancel.Press();
            });
        return window.CropPhoto(folder + name, mode, true, destination, nullptr);
    }
    PhotoResult CaptureAfter(const std::string& name, const std::function<void()>& play) {
        return Crop(name, [&] {
            play();
            if (window.IsShown()) window.cmdCapture.Press();
        });
    }
    void SetTones(int intensity, int contrast) {
        window.hsbControl(0).SetValue(intensity);
        window.hsbControl(1).SetValue(contrast);
    }
    void ZeroTones() {
        for (const int control : {0, 1}) window.cmdZeroControl(control).Press();
    }
    /// On the stage, by its left edge's distances.
    void Drag(double from, std::initializer_list<double> to, MouseButton button = MouseButton::Left) {
        window.Shape1.MouseWentDown({button, from, 3000});
        for (const double x : to) window.Shape1.MouseMoved({button, x, 3000});
        window.Shape1.MouseWentUp({button, from, 3000});
    }
    void ExpectBox(double left, double top, double width, const std::string& name = "") {
        const Rect expected{left, top, width, width / 1.6};
        for (const auto side : {&Rect::left, &Rect::top, &Rect::width, &Rect::height})
            EXPECT_NEAR(window.CropBox.Bounds().*side, expected.*side, 0.01) << name;
    }

    const std::string folder = host.WorkingFolder();
    const std::string destination = folder + "100123a.jpg";
    frmPhotoCrop window{desktop, imaging};
};

TEST_F(PhotoCrop, Opening_CentersPreviewAndBoxAndReadsTheSourceOnce) {
    Crop("wide.jpg", [&] {
        EXPECT_EQ(window.Caption(), folder + "wide.jpg");
        window.Shape1.Placed({0, 0, 9000, 7000});
        EXPECT_EQ(window.Preview.Bounds(), (Rect{2100, 2000, 4800, 3000}));
        ExpectBox(2100, 2000, 4800);
    });
    EXPECT_EQ(imaging.opened + imaging.previews, 2);
    EXPECT_EQ(imaging.openNow, 0) << "the source is given back";
    EXPECT_EQ(desktop.pointer, Pointer::Default);
    GivenFile("tall.jpg", 50, 300);
    Crop("tall.jpg", [&] { EXPECT_EQ(window.Preview.Width(), 53 * 15); });
}

TEST_F(PhotoCrop, EveryWayOut_HasItsResult) {
    const std::pair<PhotoResult, std::function<void()>> cases[] = {
        {PhotoResult::Done, [&] { window.cmdCapture.Press(); }},
        {PhotoResult::Skip, [&] { window.cmdCancel.Press(); }},
        {PhotoResult::Cancel, [&] { window.cmdAbort.Press(); }},
        {PhotoResult::Skip, [&] { EXPECT_FALSE(window.Unload(CloseReason::Frame)); }},
        {PhotoResult::Unloaded, [&] { EXPECT_TRUE(window.Unload(CloseReason::Host)); }},
    };
    for (const auto& [result, leave] : cases) {
        EXPECT_EQ(Crop("wide.jpg", leave), result);
        EXPECT_EQ(files::FileExists(destination), result == PhotoResult::Done);
        files::TryDelete(destination);
    }
}

TEST_F(PhotoCrop, OpeningFails_SaysWhyAndSkips) {
    const char* noPhoto = "The selected file is not a valid photo.";
    const char* own = "its own words";
    for (const auto& [number, text] :
         {std::pair{20009, noPhoto}, {20172, noPhoto}, {20001, own}, {ApplicationErrorNumber, own}}) {
        imaging.openFailure = Error(number, "imaging", own);
        desktop.Expect(text);
        EXPECT_EQ(Crop("wide.jpg", nullptr), PhotoResult::Skip);
        EXPECT_EQ(desktop.messages.back().modality, Modality::System);
        EXPECT_TRUE(!window.IsLoaded() && desktop.pointer == Pointer::Default);
    }
    desktop.Expect("No photo on the clipboard");
    EXPECT_EQ(Crop("", nullptr, CropMode::Clipboard), PhotoResult::Skip);
}

TEST_F(PhotoCrop, Capture_OrdersTheFramedPartWithTonesAndMarkerAsItWasShown) {
    window.SetPhotoSize("480,300,35,35000,4,Board 1");
    CaptureAfter("wide.jpg", [&] {
        window.CropBox.Move({-600, 1500, 4800, 3000});  // half of it left of the picture
        SetTones(25, -100);
        EXPECT_EQ(window.lblControlValue(1).Caption(), "-100");
        EXPECT_EQ(window.Preview.Tones(), MakeToneTable(25, -100));
        window.cmdShowPhoto.Press();
    });
    const CaptureOrder& captured = imaging.orders.at(0);
    for (const CaptureOrder& order : {captured, imaging.shown}) {
        EXPECT_EQ(order.cut, (PixelRect{0, 0, 320, 400}));
        EXPECT_EQ((PixelRect{order.left, order.top, order.width, order.height}),
                  (PixelRect{240, 0, 240, 300}));
        EXPECT_EQ(order.tones, MakeToneTable(25, -100));
        EXPECT_EQ(order.caption, "Board 1");
    }
    EXPECT_EQ(captured.jpegQualityFactor, 35);
    EXPECT_EQ(files::ReadAll(destination)[24], 108);
    EXPECT_FALSE(files::FileExists(files::UnfinishedName(destination)));
}

TEST_F(PhotoCrop, BadBox_IsRefusedAndPlacedAnew) {
    const std::tuple<Rect, Button&, const char*> cases[] = {
        {{2000, 2000, 480, 300}, window.cmdCapture, "The image capture area is to small."},
        {{2000, 2000, 480, 300}, window.cmdShowPhoto, "The image capture area is to small."},
        {{6530, 2000, 1600, 1000}, window.cmdCapture, "Not enough of the image is selected."},
    };
    for (const auto& [box, button, text] : cases) {
        desktop.Expect(text);
        Crop("wide.jpg", [&, &place = box, &pressed = button] {
            window.CropBox.Move(place);
            pressed.Press();
            ExpectBox(1800, 1500, 4800);
            EXPECT_TRUE(window.IsShown() && !window.picPhoto.Visible());
        });
        EXPECT_FALSE(files::FileExists(destination));
    }
}

TEST_F(PhotoCrop, FinishedSource_PassesOnlyWhenNothingChanges) {
    const std::string end = "\xFF\xD9", photo = "photo" + end;
    const auto key = [&](Key wanted) { window.Shape1.PressKey({wanted, false, true}); };
    const auto nothing = [] {};
    const std::tuple<const char*, bool, std::string, std::function<void()>, const char*> cases[] = {
        {"limit.jpg", true, std::string(34997, 'x') + end, nothing, ""},
        {"long.jpg", false, std::string(34998, 'x') + end, nothing, ""},
        {"no end.jpg", false, "with a thumbnail" + end + " and \xFF\xDA its picture", nothing, ""},
        {"other.png", false, photo, nothing, ""},
        {"tones.jpg", false, photo, [&] { SetTones(25, 0); }, ""},
        {"opposite.jpg", true, photo, [&] { SetTones(25, -25); }, ""},
        {"zero.jpg", true, photo, [&] { SetTones(25, 9), ZeroTones(); }, ""},
        {"right.jpg", true, photo, [&] { key(Key::Right); }, ""},  // the margins cancel out
        {"smaller.jpg", false, photo, [&] { key(Key::Minus); }, ""},
        {"turned.jpg", false, photo, [&] { window.cmdRotateLeft.Press(); }, ""},
        {"back.jpg", true, photo, [&] { window.cmdRotateLeft.Press(), window.cmdRotateRight.Press(); }, ""},
        {"straight.jpg", false, photo, [&] { window.hsbStraighten.SetValue(1); }, ""},
        {"new.jpg", false, photo, nothing, "Board"},
        {"marked.jpg", true, std::string(25, char{108}) + end, nothing, "Board"},
    };
    for (const auto& [file, passes, bytes, change, marker] : cases) {
        GivenFile(file, 480, 300, std::string(file).ends_with("jpg"), bytes);
        window.SetPhotoSize(std::string("480,300,35,35000,4,") + marker);
        CaptureAfter(file, change);
        EXPECT_EQ(files::ReadAll(destination) == bytes, passes) << file;
    }
}

TEST_F(PhotoCrop, CaptureFails_WindowStaysUnlessThePictureIsBroken) {
    const std::pair<std::int32_t, const char*> cases[] = {
        {PictureWriteError, "The photo was not saved. No space left on device"},
        {InvalidPictureError, "The selected file is not a valid photo."},
    };
    for (const auto& [number, text] : cases) {
        imaging.captureFailure = Error(number, "imaging", "No space left on device");
        desktop.Expect(text);
        const PhotoResult secondTry = CaptureAfter("wide.jpg", [&] {
            window.cmdCapture.Press();
            imaging.captureFailure.reset();
        });
        EXPECT_EQ(secondTry, number == PictureWriteError ? PhotoResult::Done : PhotoResult::Skip);
    }
}

TEST_F(PhotoCrop, HeldMoveButton_StepsPausesAndRepeats) {
    Crop("wide.jpg", [&] {
        window.cmdMoveCropBox(0).MouseWentDown();
        ExpectBox(1770, 1500, 4800);
        EXPECT_EQ(window.Timer.Interval(), 500);
        window.Timer.Tick();
        EXPECT_EQ(window.Timer.Interval(), 10);
        window.Timer.Tick();
        window.cmdMoveCropBox(0).MouseWentUp();
        window.cmdMoveCropBox(0).Press();  // the click that ends every press of the mouse
        window.Timer.Tick();
        ExpectBox(1710, 1500, 4800);
        window.cmdMoveCropBox(3).Press();
        ExpectBox(1710, 1530, 4800);
    });
}

TEST_F(PhotoCrop, MouseOnPreviewAndStage_DragsInOneCoordinateSystem) {
    Crop("wide.jpg", [&] {
        window.Preview.MouseMoved({MouseButton::None, 50, 1500});
        EXPECT_EQ(window.Shape1.MousePointer(), Pointer::SizeWestEast);
        window.Preview.MouseWentDown({MouseButton::Left, 2400, 1500});
        window.Preview.MouseMoved({MouseButton::Left, 2400.4, 1500});  // not a whole twip yet
        window.Preview.MouseMoved({MouseButton::Left, -2400, 1500});
        ExpectBox(-3000, 1500, 4800);
        window.Preview.MouseWentUp({MouseButton::Left, -2400, 1500});
        Drag(100, {300}, MouseButton::Right);
        ExpectBox(-3000, 1500, 4800, "only the left button drags");
        Drag(100, {300});
        ExpectBox(-2800, 1500, 4800);
        window.Shape1.PressKey({Key::Home});
        Drag(6600, {3000, -9000, 6500});
        ExpectBox(1800, 1531.25, 4700, "past its other edge it waits for the pointer to come back");
    });
}

TEST_F(PhotoCrop, View_FillsTheStageAndIsZoomedAndMovedWithoutTheBox) {
    window.InnerPlaced({12000, 8000});
    Crop("wide.jpg", [&] {
        EXPECT_EQ(window.InnerSize(), (Size{15360, 12288})) << "most of the screen";
        // 8400 twips less the margins are 8040 / 4800 of the preview's width: 536 pixels.
        EXPECT_NEAR(window.Shape1.Lens().scale, 1.675, 1e-9);
        EXPECT_EQ(window.Preview.Image()->width, 536);
        const Rect box = window.CropBox.Bounds();
        window.Shape1.Zoom({2, 1800, 1500});  // at the preview's corner, which stays where it is
        const auto corner = [&] { return window.Shape1.Lens().Shown(window.Preview.Bounds()); };
        EXPECT_NEAR(corner().left, 180, 1e-6);
        EXPECT_NEAR(corner().width, 16080, 1e-6);
        EXPECT_EQ(window.Preview.Image()->width, 536) << "not while it moves";
        window.tmrSharpen.Tick();
        EXPECT_EQ(window.Preview.Image()->width, 640) << "no more pixels than the picture has";
        window.Shape1.PressKey({Key::Space});
        Drag(2000, {1900});
        EXPECT_NEAR(corner().left, 180 - 100 * 3.35, 1e-6);
        window.Shape1.ReleaseKey(Key::Space);
        EXPECT_EQ(window.CropBox.Bounds(), box);
    });
    EXPECT_EQ(imaging.previews, 2);
}

TEST_F(PhotoCrop, TallTarget_OpensAWindowWhoseStageHoldsBothPlacements) {
    window.SetPhotoSize("300,480,35,35000");
    window.InnerPlaced({12000, 8000});  // with a stage of 8400 x 6000
    desktop.screen.height = 12000;
    Crop("wide.jpg", [&] { EXPECT_NEAR(window.InnerSize().height, 8000 - 6000 + 7680 + 720, 0.01); });
}

TEST_F(PhotoCrop, KeysOnTheStage_MoveAndSizeTheBox) {
    const std::tuple<KeyDown, double, double, double> cases[] = {
        {{Key::Left}, 1770, 1500, 4800},           {{Key::Right, false, true}, 2100, 1500, 4800},
        {{Key::Right, true}, 1785, 1490.62, 4830}, {{Key::Up, true, true}, 1950, 1593.75, 4500},
        {{Key::Plus}, 1785, 1490.62, 4830},        {{Key::Minus}, 1815, 1509.37, 4770},
    };
    Crop("wide.jpg", [&] {
        for (const auto& [key, left, top, width] : cases) {
            window.Shape1.PressKey({Key::Home});
            EXPECT_TRUE(window.Shape1.PressKey(key));
            ExpectBox(left, top, width, std::to_string(width));
        }
        EXPECT_FALSE(window.Shape1.PressKey({Key::Tab}));
    });
}

TEST_F(PhotoCrop, TurnedPicture_IsCapturedTurned) {
    GivenFile("exact.jpg", 480, 300);
    CaptureAfter("exact.jpg", [&] {
        EXPECT_EQ(window.lblSoft.Caption(), "");
        window.cmdRotateRight.Press();
        EXPECT_EQ((Size{window.Preview.Width(), window.Preview.Height()}), (Size{3000, 4800}));
        ExpectBox(2700, 600 + (4800 - 1875) / 2.0, 3000, "as over a picture of that shape");
        EXPECT_EQ(window.lblSoft.Caption(), "300 x 187 pixels become 480 x 300: the photo will look soft");
        window.hsbStraighten.SetValue(-25);
        EXPECT_EQ(window.CropBox.Guides(), Guides::Grid);
        window.tmrSharpen.Tick();
        EXPECT_EQ(window.CropBox.Guides(), Guides::Thirds);
        EXPECT_EQ(window.lblStraightenValue.Caption(), "-2.5\u00B0");
    });
    EXPECT_EQ(imaging.turn, (PictureTurn{1, -2.5}));
}

TEST_F(PhotoCrop, ShownPhoto_StaysUntilAnythingChanges) {
    const Mouse at{MouseButton::Left, 9, 9};
    const std::function<void()> changes[] = {
        [&] { window.cmdShowPhoto.Press(); },
        [&] { window.picPhoto.MouseWentDown(at); },
        [&] { SetTones(25, 0); },
        [&] { window.Shape1.Zoom(ZoomStep()); },
        [&] { window.Shape1.PressKey({Key::Right}); },
    };
    Crop("wide.jpg", [&] {
        for (const auto& change : changes) {
            window.cmdShowPhoto.Press();
            EXPECT_TRUE(window.picPhoto.Visible() && !window.CropBox.Visible() && !window.Preview.Visible());
            const Rect seen = window.Shape1.Lens().Shown(window.picPhoto.Bounds());
            EXPECT_NEAR(seen.width, 7200, 1e-6) << "in its own size, at any zoom";
            EXPECT_NEAR(seen.left, 600, 1e-6);
            change();
            EXPECT_TRUE(!window.picPhoto.Visible() && window.CropBox.Visible()) << &change - changes;
        }
    });
}

TEST_F(PhotoCrop, UndoAndRedo_GoThroughWhatTheUserDid) {
    const std::initializer_list<double> steadily = {4100, 4200};
    const auto slide = [&](int control) {
        for (const int value : {10, 20, 30}) window.hsbControl(control).SetValue(value);
    };
    const std::function<void()> steps[] = {[&] { window.Shape1.PressKey({Key::End}); },
                                           [&] { Drag(4000, steadily); },
                                           [&] { slide(1); },
                                           [&] { window.cmdRotateLeft.Press(); },
                                           [&] { window.hsbStraighten.SetValue(50); },
                                           [&] { window.cmdAuto.Press(); },
                                           [&] { window.cmdOriginal.Press(); }};
    GivenFile("tall.jpg", 600, 800);
    Crop("tall.jpg", [&] {
        const auto seen = [&] {
            const Rect &box = window.CropBox.Bounds(), &picture = window.Preview.Bounds();
            return std::tuple(std::lround(box.left - picture.left), std::lround(box.top - picture.top),
                              std::lround(box.width), picture.width, window.hsbControl(0).Value(),
                              window.hsbControl(1).Value(), window.hsbStraighten.Value());
        };
        std::vector states{seen()};
        EXPECT_FALSE(window.cmdUndo.Enabled() || window.cmdRedo.Enabled() || window.cmdOriginal.Enabled());
        for (const auto& step : steps) {
            step();
            if (seen() != states.back()) states.push_back(seen());
        }
        EXPECT_EQ(states.back(), states.front()) << "the original again";
        ASSERT_EQ(states.size(), 8U) << "one for each step";
        window.Shape1.Placed({0, 0, 9000, 7000});  // the box goes along with the stage
        const auto goTo = [&](std::size_t state, Button& by) {
            by.Press();
            EXPECT_EQ(seen(), states[state]) << state;
        };
        for (std::size_t i = 7; i-- > 0;) goTo(i, window.cmdUndo);
        EXPECT_FALSE(window.cmdUndo.Enabled());
        for (std::size_t i = 1; i < 7; ++i) goTo(i, window.cmdRedo);
        window.Shape1.PressKey({Key::Left});
        EXPECT_FALSE(window.cmdRedo.Enabled()) << "another way was taken";
    });
}

TEST_F(PhotoCrop, UseForAll_CapturesTheRestAlikeUntilItIsStopped) {
    GivenFile("half.jpg", 320, 200);
    GivenFile("tall.jpg", 400, 640);
    const SeveralPictures several(window);
    EXPECT_FALSE(window.cmdUseForAll.Visible());
    window.SetProgress("Picture 1 of 4");
    const auto first = [&] {
        window.CropBox.Move({1800, 1500, 2400, 1500});
        SetTones(50, 0);
        window.hsbStraighten.SetValue(10);
        window.cmdUseForAll.Press();
    };
    const auto next = [&] {
        EXPECT_TRUE(window.tmrUseForAll.Enabled());
        window.tmrUseForAll.Tick();
    };
    EXPECT_EQ(Crop("wide.jpg", first), PhotoResult::Done);
    for (const char* file : {"half.jpg", "tall.jpg"}) EXPECT_EQ(Crop(file, next), PhotoResult::Done);
    ASSERT_EQ(imaging.orders.size(), 3U);
    EXPECT_EQ(imaging.orders[1].cut, (PixelRect{0, 0, 160, 100}));
    EXPECT_EQ(imaging.orders[2].cut, (PixelRect{0, 195, 200, 125})) << "beside the middle, as before";
    EXPECT_EQ(imaging.orders[2].tones, MakeToneTable(50, 0));
    EXPECT_EQ(imaging.turn, (PictureTurn{0, 1}));
    Crop("half.jpg", [&] {
        window.Shape1.PressKey({Key::Left});
        EXPECT_FALSE(window.tmrUseForAll.Enabled()) << "taken in hand";
    });
    Crop("half.jpg", [&] { EXPECT_EQ(window.hsbControl(0).Value() + window.hsbStraighten.Value(), 0); });
}

TEST_F(PhotoCrop, Views_AreChosenByTextAndKeptAtCapture) {
    Crop("wide.jpg", [&] { EXPECT_FALSE(window.cmbView.Visible()); });
    window.SetViews(
        {{"Front", 2100}, {"Side", 2110}, {"Side View", 2120}, {"View", 2130}, {"Côté jardin", 2140}});
    const std::tuple<const char*, Texts> cases[] = {
        {"Front", {"wide.jpg", "Poolside.jpg", "overview.jpg", "côté jardiné.jpg"}},
        {"Side", {"side.jpg", "inside, side.jpg"}},
        {"Side View", {"100123_SIDE VIEW2.jpg"}},
        {"Côté jardin", {"CÔTÉ JARDIN.jpg"}}};
    for (const auto& [view, files] : cases)
        for (const std::string& file : files) {
            GivenFile(file, 640, 400);
            Crop(file, [&, wanted = view] { EXPECT_EQ(window.cmbView.Text(), wanted) << window.Caption(); });
        }
    CaptureAfter("wide.jpg", [&] { window.SelectView("CÔTÉ"); });
    EXPECT_EQ(window.ChosenView(), "Côté jardin");
    EXPECT_EQ(window.ChosenViewData(), 2140);
}

}  // namespace lumarin
