// The time from one step of a slider in the crop window to its repainted picture, over many steps; the window
// fills a screen of 1920 x 1080 pixels.
// Usage: bench_slider PICTURE. Prints the median and the 95th percentile in milliseconds.

#include <QApplication>
#include <QSlider>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "imaging/frmPhotoCrop.h"
#include "platform/qt/QtDesktop.h"
#include "platform/vips/VipsImaging.h"

namespace {

constexpr int Steps = 400;
constexpr int StepSize = 25;

std::vector<double> StepTimes(const lumarin::frmPhotoCrop& crop) {
    auto* window = static_cast<QWidget*>(crop.NativeWindow());
    auto* preview = window->findChild<QWidget*>("Preview");
    std::vector<double> times;
    for (int step = 0; step < Steps; ++step) {
        auto* slider = window->findChild<QSlider*>(step % 2 == 0 ? "hsbControl_0" : "hsbControl_1");
        const auto start = std::chrono::steady_clock::now();
        slider->setValue((step * StepSize) % 1000 - 500);
        preview->parentWidget()->repaint();
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    return times;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    lumarin::qt::SetUpApplication(application);
    lumarin::qt::QtDesktop desktop;
    lumarin::vips::VipsImaging imaging;
    lumarin::frmPhotoCrop crop(desktop, imaging);
    crop.SetPhotoSize("480,300,35,35000,4");
    std::vector<double> times;
    QTimer::singleShot(100, [&] { static_cast<QWidget*>(crop.NativeWindow())->resize(1920, 1080); });
    QTimer::singleShot(1000, [&] {  // the picture has been made as sharp as that by then
        times = StepTimes(crop);
        crop.cmdCancel.Press();
    });
    crop.CropPhoto(argc > 1 ? argv[1] : "", lumarin::CropMode::File, false, "unused.jpg", nullptr);
    if (times.empty()) return 1;
    std::printf("%.2f %.2f\n", times[times.size() / 2], times[times.size() * 95 / 100]);
    return 0;
}
