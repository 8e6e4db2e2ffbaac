#include "platform/qt/PreviewPane.h"

#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QVBoxLayout>

#include <memory>

#include "platform/qt/Conversions.h"
#include "platform/qt/Icons.h"
#include "platform/qt/widgets/PictureWidget.h"

namespace lumarin::qt {

namespace {
constexpr int Side = 240;
constexpr const char* NoPreview = "No preview";
}  // namespace

PreviewPane::PreviewPane(QWidget* parent)
    : QWidget(parent),
      picture_(new PictureWidget(this)),
      pixels_(new QLabel(this)),
      bytes_(new QLabel(this)) {
    picture_->setObjectName("previewPicture");
    picture_->setAccessibleName("Preview");
    picture_->setMinimumSize(Side, Side);
    picture_->SetIcon(ToolIcon("image-x-generic"), PictureWidget::IconUse::PlaceHolder);
    pixels_->setObjectName("previewPixels");
    bytes_->setObjectName("previewBytes");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(picture_, 1);
    for (QLabel* label : {pixels_, bytes_}) {
        label->setAlignment(Qt::AlignCenter);
        layout->addWidget(label);
    }
    pixels_->setText(NoPreview);
}

void PreviewPane::ShowFile(const QString& path) {
    const QFileInfo file(path);
    QImageReader reader(path);
    reader.setAutoTransform(true);
    reader.setDecideFormatFromContent(true);
    const QSize full = reader.size();
    const double ratio = devicePixelRatioF();
    if (full.width() > Side * ratio || full.height() > Side * ratio)
        reader.setScaledSize(
            full.scaled((QSizeF(Side, Side) * ratio).toSize(), Qt::KeepAspectRatio).expandedTo({1, 1}));
    const QImage image = file.isFile() ? reader.read() : QImage();
    picture_->SetPicture(image.isNull() ? nullptr : std::make_shared<Picture>(ToPicture(image)));
    const bool turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize upright = turned ? full.transposed() : full;
    pixels_->setText(image.isNull()
                         ? QString(NoPreview)
                         : QStringLiteral("%1 × %2 pixels").arg(upright.width()).arg(upright.height()));
    bytes_->setText(file.isFile() ? locale().toString(file.size()) + " bytes" : QString());
}

}  // namespace lumarin::qt
