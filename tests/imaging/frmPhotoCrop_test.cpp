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
    PhotoResult CropUnseen(const std::string& name, CropMode mode = CropMode::File) {
        return window.CropPhoto(folder + name, mode, true, destination, nullptr);
    }
    /// Opens the window on a file and lets the user do `play`, who cancels in the end if it is still open.
    PhotoResult Crop(const std::string& name, const std::function<void()>& play,
                     CropMode mode = CropMode::File) {
        desktop.Play("frmPhotoCrop", [&](Form&) {
            play();
            if (window.IsShown()) window.cmdCancel.Press();
        });
        return CropUnseen(name, mode);
    }
    PhotoResult CaptureAfter(const std::string& name, const std::function<void()>& play) {
        return Crop(name, [&] {
            play();
            if (window.IsShown()) window.cmdCapture.Press();
        });
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
    const std::pair<std::int32_t, const char*> cases[] = {
        {20009, "The selected file is not a valid photo."},
        {20001, "its own words"},
        {ApplicationErrorNumber, "its own words"},
        {20172, "The selected file is not a valid photo."},
    };
    for (const auto& [number, text] : cases) {
        imaging.openFailure = Error(number, "imaging", "its own words");
        desktop.Expect(text);
        EXPECT_EQ(CropUnseen("wide.jpg"), PhotoResult::Skip);
        EXPECT_EQ(desktop.messages.back().modality, Modality::System);
        EXPECT_FALSE(window.IsLoaded());
        EXPECT_EQ(desktop.pointer, Pointer::Default);
    }
    desktop.Expect("No photo on the clipboard");
    EXPECT_EQ(CropUnseen("", CropMode::Clipboard), PhotoResult::Skip);
}

TEST_F(PhotoCrop, Capture_OrdersTheFramedPartWithTonesAndMarker) {
    window.SetPhotoSize("480,300,35,35000,4,Board 1");
    CaptureAfter("wide.jpg", [&] {
        window.CropBox.Move({-600, 1500, 4800, 3000});  // half of it left of the picture
        window.hsbControl(0).SetValue(25);
        window.hsbControl(1).SetValue(-100);
    });
    const CaptureOrder& order = imaging.orders.at(0);
    EXPECT_EQ(order.cut, (PixelRect{0, 0, 320, 400}));
    EXPECT_EQ((PixelRect{order.left, order.top, order.width, order.height}), (PixelRect{240, 0, 240, 300}));
    EXPECT_EQ(order.tones, MakeToneTable(25, -100));
    EXPECT_EQ(order.jpegQualityFactor, 35);
    EXPECT_EQ(order.caption, "Board 1");
    EXPECT_EQ(files::ReadAll(destination)[24], 108);
    EXPECT_FALSE(files::FileExists(files::UnfinishedName(destination)));
}

TEST_F(PhotoCrop, BadBox_IsRefusedAndPlacedAnew) {
    const std::pair<Rect, const char*> cases[] = {
        {{2000, 2000, 480, 300}, "The image capture area is to small."},
        {{6530, 2000, 1600, 1000}, "Not enough of the image is selected."},
    };
    for (const auto& [box, text] : cases) {
        desktop.Expect(text);
        const PhotoResult result = CaptureAfter("wide.jpg", [&, place = box] { window.CropBox.Move(place); });
        EXPECT_EQ(result, PhotoResult::Skip) << "left open and cancelled";
        ExpectBox(1800, 1500, 4800);
        EXPECT_FALSE(files::FileExists(destination));
    }
}

TEST_F(PhotoCrop, FinishedSource_PassesOnlyWhenNothingChanges) {
    GivenFile("exact.jpg", 480, 300);
    GivenFile("marked.jpg", 480, 300, true, std::string(25, char{108}) + "\xFF\xD9");
    GivenFile("long.jpg", 480, 300, true, std::string(34998, 'x') + "\xFF\xD9");
    GivenFile("limit.jpg", 480, 300, true, std::string(34997, 'x') + "\xFF\xD9");
    GivenFile("no end.jpg", 480, 300, true, "with a thumbnail\xFF\xD9 and \xFF\xDA its picture");
    GivenFile("other.png", 480, 300, false);
    const struct {
        const char* file;
        bool passes;
        int intensity = 0, contrast = 0;
        Key key = Key::None;
        const char* marker = "";
    } cases[] = {
        {"limit.jpg", true},
        {"long.jpg", false},
        {"no end.jpg", false},
        {"other.png", false},
        {"exact.jpg", false, 25},
        {"exact.jpg", true, 25, -25},
        {"exact.jpg", true, 0, 0, Key::Right},  // the margins cancel out
        {"exact.jpg", false, 0, 0, Key::Minus},
        {"exact.jpg", false, 0, 0, Key::None, "Board"},
        {"marked.jpg", true, 0, 0, Key::None, "Board"},
    };
    for (const auto& c : cases) {
        window.SetPhotoSize(std::string("480,300,35,35000,4,") + c.marker);
        CaptureAfter(c.file, [&] {
            window.hsbControl(0).SetValue(c.intensity);
            window.hsbControl(1).SetValue(c.contrast);
            window.Shape1.PressKey({c.key, false, true});
        });
        const bool copied = files::ReadAll(destination) == files::ReadAll(folder + c.file);
        EXPECT_EQ(copied, c.passes) << "row " << &c - cases;
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
        for (const auto& [button, left] :
             {std::pair{MouseButton::Right, -3000}, {MouseButton::Left, -2800}}) {
            window.Shape1.MouseWentDown({button, 100, 3000});
            window.Shape1.MouseMoved({button, 300, 3000});
            ExpectBox(left, 1500, 4800, "only the left button drags");
        }
    });
}

TEST_F(PhotoCrop, EdgeDraggedPastTheOther_WaitsForThePointerToComeBack) {
    Crop("wide.jpg", [&] {
        window.Shape1.MouseWentDown({MouseButton::Left, 6600, 3000});
        for (const double x : {3000, -9000, 6500}) window.Shape1.MouseMoved({MouseButton::Left, x, 3000});
        ExpectBox(1800, 1531.25, 4700);
    });
}

TEST_F(PhotoCrop, TallTarget_OpensAWindowWhoseStageHoldsBothPlacements) {
    window.SetPhotoSize("300,480,35,35000");
    window.InnerPlaced({12000, 8000});  // with a stage of 8400 x 6000
    desktop.screen.height = 12000;
    Crop("wide.jpg", [&] { EXPECT_NEAR(window.InnerSize().height, 8000 - 6000 + 7680 + 720, 0.01); });
}

TEST_F(PhotoCrop, View_FillsTheStageAndIsZoomedAndMovedWithoutTheBox) {
    window.InnerPlaced({12000, 8000});
    window.SetOpeningSize({13000, 99000});
    Crop("wide.jpg", [&] {
        EXPECT_EQ(window.InnerSize(), (Size{13000, desktop.screen.height - 600})) << "within the screen";
        EXPECT_EQ(window.ChosenSize(), Size{});
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
        window.Shape1.MouseWentDown({MouseButton::Left, 2000, 2000});
        window.Shape1.MouseMoved({MouseButton::Left, 1900, 2000});
        EXPECT_NEAR(corner().left, 180 - 100 * 3.35, 1e-6);
        window.Shape1.MouseWentUp({MouseButton::Left, 2000, 2000});
        window.Shape1.ReleaseKey(Key::Space);
        EXPECT_EQ(window.CropBox.Bounds(), box);
    });
    EXPECT_EQ(imaging.previews, 2);
}

TEST_F(PhotoCrop, KeysOnTheStage_MoveAndSizeTheBox) {
    const struct {
        KeyDown key;
        double left, top, width;
    } cases[] = {
        {{Key::Left}, 1770, 1500, 4800},           {{Key::Right, false, true}, 2100, 1500, 4800},
        {{Key::Right, true}, 1785, 1490.62, 4830}, {{Key::Up, true, true}, 1950, 1593.75, 4500},
        {{Key::Plus}, 1785, 1490.62, 4830},        {{Key::Minus}, 1815, 1509.37, 4770},
    };
    Crop("wide.jpg", [&] {
        for (const auto& c : cases) {
            window.Shape1.PressKey({Key::Home});
            EXPECT_TRUE(window.Shape1.PressKey(c.key));
            ExpectBox(c.left, c.top, c.width, "row " + std::to_string(&c - cases));
        }
        EXPECT_FALSE(window.Shape1.PressKey({Key::Tab}));
    });
}

TEST_F(PhotoCrop, Slider_ShowsItsEffectFromTheUnchangedPreview) {
    window.hsbControl(0).SetValue(75);
    Crop("wide.jpg", [&] {
        EXPECT_EQ(window.lblControlValue(0).Caption(), "0") << "each photo starts anew";
        const PicturePtr plain = window.Preview.Image();
        window.hsbControl(0).SetValue(500);
        window.hsbControl(1).SetValue(100);
        EXPECT_EQ(window.lblControlValue(0).Caption(), "500");
        EXPECT_EQ(window.Preview.Tones(), MakeToneTable(500, 100));
        for (const int control : {0, 1}) window.cmdZeroControl(control).Press();
        EXPECT_EQ(window.Preview.Tones(), PlainTones());
        EXPECT_EQ(window.Preview.Image(), plain);
    });
}

TEST_F(PhotoCrop, TurnedPicture_IsCapturedTurnedAndNeverPassesThrough) {
    GivenFile("exact.jpg", 480, 300);
    CaptureAfter("exact.jpg", [&] {
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
    ASSERT_EQ(imaging.orders.size(), 1U);
    CaptureAfter("exact.jpg", [&] {
        for (int i = 0; i < 2; ++i) {
            window.cmdRotateLeft.Press();
            window.cmdRotateRight.Press();
        }
        EXPECT_EQ(window.hsbStraighten.Value(), 0) << "each photo starts anew";
        EXPECT_EQ(window.lblSoft.Caption(), "");
    });
    EXPECT_EQ(imaging.orders.size(), 1U) << "as it was, it passes";
}

TEST_F(PhotoCrop, ShownPhoto_IsThatOfTheCaptureUntilAnythingChanges) {
    window.SetPhotoSize("480,300,35,35000,4,Board 1");
    CaptureAfter("wide.jpg", [&] {
        window.CropBox.Move({0, 1500, 4800, 3000});
        const std::function<void()> changes[] = {
            [&] { window.cmdShowPhoto.Press(); },
            [&] {
                window.picPhoto.MouseWentDown({MouseButton::Left, 9, 9});
            },
            [&] { window.hsbControl(0).SetValue(25); },
            [&] {
                window.Shape1.Zoom({2, 0, 0});
            },
            [&] { window.Shape1.PressKey({Key::Right}); },
        };
        for (const auto& change : changes) {
            window.cmdShowPhoto.Press();
            EXPECT_TRUE(window.picPhoto.Visible() && !window.CropBox.Visible() && !window.Preview.Visible());
            const Rect seen = window.Shape1.Lens().Shown(window.picPhoto.Bounds());
            EXPECT_NEAR(seen.width, 7200, 1e-6) << "in its own size, at any zoom";
            EXPECT_NEAR(seen.left, 600, 1e-6);
            change();
            EXPECT_FALSE(window.picPhoto.Visible()) << &change - changes;
            EXPECT_TRUE(window.CropBox.Visible() && window.Preview.Visible());
        }
        window.cmdShowPhoto.Press();
    });
    ASSERT_EQ(imaging.orders.size(), 1U) << "the photo that is shown can be captured";
    EXPECT_EQ(imaging.shown.cut, imaging.orders[0].cut);
    EXPECT_EQ(imaging.shown.caption, "Board 1");
    EXPECT_EQ(imaging.shown.tones, imaging.orders[0].tones);
    desktop.Expect("The image capture area is to small.");
    Crop("wide.jpg", [&] {
        window.CropBox.Move({2000, 2000, 480, 300});
        window.cmdShowPhoto.Press();
        EXPECT_FALSE(window.picPhoto.Visible());
    });
}

TEST_F(PhotoCrop, UndoAndRedo_GoThroughWhatTheUserDid) {
    const std::function<void()> steps[] = {
        [&] { window.Shape1.PressKey({Key::End}); },
        [&] {
            window.Shape1.MouseWentDown({MouseButton::Left, 4000, 3000});
            for (const double x : {4100, 4200}) window.Shape1.MouseMoved({MouseButton::Left, x, 3000});
            window.Shape1.MouseWentUp({MouseButton::Left, 4200, 3000});
        },
        [&] {
            for (const int value : {10, 20, 30}) window.hsbControl(1).SetValue(value);
        },
        [&] { window.cmdRotateLeft.Press(); },
        [&] { window.hsbStraighten.SetValue(50); },
        [&] { window.cmdAuto.Press(); },
        [&] { window.cmdOriginal.Press(); },
    };
    GivenFile("tall.jpg", 600, 800);
    Crop("tall.jpg", [&] {
        const auto seen = [&] {
            const Rect& box = window.CropBox.Bounds();
            const auto whole = [](double twips) { return std::lround(twips); };
            return std::tuple(whole(box.left - window.Preview.Left()), whole(box.top - window.Preview.Top()),
                              whole(box.width), window.Preview.Width(), window.hsbControl(0).Value(),
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
        for (std::size_t i = states.size() - 1; i-- > 0;) {
            window.cmdUndo.Press();
            EXPECT_EQ(seen(), states[i]) << i;
        }
        EXPECT_FALSE(window.cmdUndo.Enabled());
        for (std::size_t i = 1; i < states.size() - 1; ++i) {
            window.cmdRedo.Press();
            EXPECT_EQ(seen(), states[i]) << i;
        }
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
    EXPECT_EQ(Crop("wide.jpg",
                   [&] {
                       window.CropBox.Move({1800, 1500, 2400, 1500});
                       window.hsbControl(0).SetValue(50);
                       window.hsbStraighten.SetValue(10);
                       window.cmdUseForAll.Press();
                   }),
              PhotoResult::Done);
    for (const char* file : {"half.jpg", "tall.jpg"})
        EXPECT_EQ(Crop(file,
                       [&] {
                           EXPECT_TRUE(window.tmrUseForAll.Enabled());
                           window.tmrUseForAll.Tick();
                       }),
                  PhotoResult::Done);
    ASSERT_EQ(imaging.orders.size(), 3U);
    EXPECT_EQ(imaging.orders[1].cut, (PixelRect{0, 0, 160, 100}));
    EXPECT_EQ(imaging.orders[2].cut, (PixelRect{0, 195, 200, 125})) << "beside the middle, as before";
    EXPECT_EQ(imaging.orders[2].tones, MakeToneTable(50, 0));
    EXPECT_EQ(imaging.turn, (PictureTurn{0, 1}));
    Crop("half.jpg", [&] {
        window.Shape1.PressKey({Key::Left});
        EXPECT_FALSE(window.tmrUseForAll.Enabled()) << "taken in hand";
    });
    Crop("half.jpg", [&] { EXPECT_EQ(window.hsbControl(0).Value(), 0) << "and so are the others"; });
}

TEST_F(PhotoCrop, Views_AreChosenByTextAndKeptAtCapture) {
    Crop("wide.jpg", [&] { EXPECT_FALSE(window.cmbView.Visible()); });
    window.SetViews(
        {{"Front", 2100}, {"Side", 2110}, {"Side View", 2120}, {"View", 2130}, {"Côté jardin", 2140}});
    const std::pair<const char*, const char*> cases[] = {
        {"side.jpg", "Side"},
        {"100123_SIDE VIEW2.jpg", "Side View"},
        {"Poolside.jpg", "Front"},
        {"overview.jpg", "Front"},
        {"inside, side.jpg", "Side"},
        {"côté jardiné.jpg", "Front"},
        {"CÔTÉ JARDIN.jpg", "Côté jardin"},
    };
    for (const auto& [file, view] : cases) {
        GivenFile(file, 640, 400);
        Crop(file, [&, wanted = view] { EXPECT_EQ(window.cmbView.Text(), wanted) << window.Caption(); });
    }
    CaptureAfter("wide.jpg", [&] {
        EXPECT_EQ(window.cmbView.Text(), "Front") << "no view's text holds the path";
        window.SelectView("CÔTÉ");
    });
    EXPECT_EQ(window.ChosenView(), "Côté jardin");
    EXPECT_EQ(window.ChosenViewData(), 2140);
}

}  // namespace lumarin
