#include "platform/qt/Icons.h"

#include <QAbstractButton>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

#include "platform/qt/widgets/PictureWidget.h"

namespace lumarin::qt {

namespace {

// The drawings' own colours stand for the palette's.
constexpr const char* LineColour = "#333333";
constexpr const char* AccentColour = "#2f6fde";

/// Paints a line drawing in the colours of the palette, sharp at every size.
class DrawingEngine final : public QIconEngine {
public:
    explicit DrawingEngine(QByteArray svg) : svg_(std::move(svg)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const bool onHighlight = mode == QIcon::Selected;
        const QColor line =
            palette.color(group, onHighlight ? QPalette::HighlightedText : QPalette::ButtonText);
        const QColor accent =
            mode == QIcon::Normal || mode == QIcon::Active ? palette.color(QPalette::Link) : line;
        QByteArray coloured = svg_;
        coloured.replace(LineColour, line.name().toLatin1()).replace(AccentColour, accent.name().toLatin1());
        QSvgRenderer renderer(coloured);
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawingEngine(*this); }
    bool isNull() override { return svg_.isEmpty(); }

private:
    QByteArray svg_;
};

}  // namespace

QIcon ToolIcon(const QString& name) {
    if (QIcon::hasThemeIcon(name)) return QIcon::fromTheme(name);
    QFile drawing(":/icons/" + name + ".svg");
    return drawing.open(QIODevice::ReadOnly) ? QIcon(new DrawingEngine(drawing.readAll())) : QIcon();
}

void ApplyIconNames(QWidget& window) {
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const QString name = widget->property("iconName").toString();
        if (name.isEmpty()) continue;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) button->setIcon(ToolIcon(name));
        if (auto* picture = dynamic_cast<PictureWidget*>(widget))
            picture->SetIcon(ToolIcon(name), widget->property("iconIsPicture").toBool()
                                                 ? PictureWidget::IconUse::Picture
                                                 : PictureWidget::IconUse::PlaceHolder);
    }
}

}  // namespace lumarin::qt
