#include "platform/qt/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QFont>
#include <QHash>
#include <QIcon>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QRadioButton>
#include <QStyleOption>
#include <QTabBar>

#include "platform/qt/QtDesktop.h"
#include "platform/qt/WindowLoader.h"
#include "platform/qt/widgets/Roles.h"

// Outside of any namespace, as the toolkit wants it.
static void UseResources() { Q_INIT_RESOURCE(lumarin_icons); }

namespace lumarin::qt {

namespace {

constexpr double SmallestFont = 10;  // points
constexpr int FocusLine = 2;         // pixels
constexpr int FocusCorner = 2;

struct Colours {
    QColor window, base, alternate, text, hint, faint, button, line, dark, highlight, resting, link;
};

const Colours Light{"#f3f4f6", "#ffffff", "#f6f8fb", "#1f2328", "#69707a", "#8b929c",
                    "#fbfbfc", "#c4c9d1", "#dcdfe4", "#2f6fde", "#d3d8e0", "#2461c8"};
const Colours Dark{"#25282c", "#1b1d20", "#212429", "#e6e8eb", "#949ba4", "#7d848d",
                   "#33373c", "#4a5058", "#17191b", "#2f6fde", "#42484f", "#79aaf7"};

QPalette PaletteOf(const Colours& colours) {
    QPalette palette;
    palette.setColor(QPalette::Window, colours.window);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.alternate);
    palette.setColor(QPalette::Button, colours.button);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, colours.text);
        palette.setColor(QPalette::Disabled, role, colours.faint);
    }
    palette.setColor(QPalette::PlaceholderText, colours.hint);
    palette.setColor(QPalette::ToolTipBase, colours.base);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Light, colours.button.lighter(110));
    palette.setColor(QPalette::Disabled, QPalette::Light,
                     colours.base);  // no etched shadow behind faint text
    palette.setColor(QPalette::Midlight, colours.button.lighter(105));
    palette.setColor(QPalette::Mid, colours.line);
    palette.setColor(QPalette::Dark, colours.dark);
    palette.setColor(QPalette::Shadow, QColor(0, 0, 0, 90));
    palette.setColor(QPalette::Highlight, colours.highlight);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, colours.line);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    // The chosen row of a list without the focus: two lists of a window are told apart at a glance.
    palette.setColor(QPalette::Inactive, QPalette::Highlight, colours.resting);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, colours.text);
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, colours.text);
    palette.setColor(QPalette::Link, colours.link);
    return palette;
}

/// The toolkit's own style in our colours. They come with the style because a palette that is set by hand
/// gives each widget a copy, and the style's cache of pixmaps, whose keys name the palette, then takes in new
/// ones without end.
class ColouredStyle : public QProxyStyle {
public:
    explicit ColouredStyle(QPalette palette) : QProxyStyle("Fusion"), palette_(std::move(palette)) {}

    void polish(QPalette& palette) override { palette = palette_; }
    /// The focus is seen from the start, not only after somebody has pressed the Tab key.
    void polish(QWidget* widget) override {
        if (widget->isWindow()) widget->setAttribute(Qt::WA_KeyboardFocusChange);
        QProxyStyle::polish(widget);
    }
    using QProxyStyle::polish;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
        if (metric == PM_DefaultFrameWidth && qobject_cast<const QAbstractItemView*>(widget) != nullptr)
            return FocusLine;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }

    /// The buttons of boxes look as those of windows do; the style's own drawings are coarse.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
        return QProxyStyle::styleHint(hint, option, widget, more);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool isList = element == PE_Frame && qobject_cast<const QAbstractItemView*>(widget) != nullptr;
        const bool isChoice =
            element == PE_FrameFocusRect && (qobject_cast<const QRadioButton*>(widget) != nullptr ||
                                             qobject_cast<const QCheckBox*>(widget) != nullptr ||
                                             qobject_cast<const QTabBar*>(widget) != nullptr);
        if (isList || isChoice || element == PE_FrameLineEdit) DrawFocus(*option, *painter);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
        QProxyStyle::drawControl(element, option, painter, widget);
        if (element == CE_PushButton) DrawFocus(*option, *painter);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (control == CC_ToolButton || control == CC_ComboBox || control == CC_Slider)
            DrawFocus(*option, *painter);
    }

    /// The same icon each time, for the same reason; file dialogs ask for some whenever one is opened.
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override {
        QIcon& icon = icons_[which];
        if (icon.isNull()) icon = QProxyStyle::standardIcon(which, option, widget);
        return icon;
    }

private:
    static void DrawFocus(const QStyleOption& option, QPainter& painter) {
        if (!option.state.testFlag(State_HasFocus)) return;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(option.palette.color(QPalette::Active, FocusColour), FocusLine));
        painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), FocusCorner, FocusCorner);
        painter.restore();
    }

    const QPalette palette_;
    mutable QHash<StandardPixmap, QIcon> icons_;
};

bool WantsDark() {
    const QByteArray wanted = qgetenv("LUMARIN_THEME");
    if (wanted == "dark" || wanted == "light") return wanted == "dark";
    const QPalette desktops = QGuiApplication::palette();
    return desktops.color(QPalette::Window).lightness() < desktops.color(QPalette::WindowText).lightness();
}

}  // namespace

QPalette PaletteOf(Theme theme) { return PaletteOf(theme == Theme::Dark ? Dark : Light); }

void SetUpWindows() {
    UseResources();
    NameRoles();
    AddWindowDesigns();
}

void SetUpApplication(QApplication& application) {
    SetUpWindows();
    QApplication::setStyle(new ColouredStyle(PaletteOf(WantsDark() ? Theme::Dark : Theme::Light)));
    QFont font = QApplication::font();
    if (font.pointSizeF() > 0 && font.pointSizeF() < SmallestFont) font.setPointSizeF(SmallestFont);
    application.setFont(font);
}

}  // namespace lumarin::qt
