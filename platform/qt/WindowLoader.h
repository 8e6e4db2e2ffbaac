#pragma once

#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace lumarin {
class Form;
}

namespace lumarin::qt {

using WindowMaker = std::unique_ptr<QWidget> (*)();

/// Makes a design known under the form's name. The build calls it for each file of `windows/`.
void AddDesign(const std::string& formName, WindowMaker maker);
/// Makes the component's own designs known; the build writes it (see Resources.cmake).
void AddWindowDesigns();
/// The forms that have a design.
std::vector<std::string> DesignNames();

/// A window of the class that a compiled design asks for, set up by it.
template <class Window, class Design>
std::unique_ptr<QWidget> MakeFrom(void (Design::*setUp)(Window*)) {
    auto window = std::make_unique<Window>();
    Design design;
    (design.*setUp)(window.get());
    return window;
}

/// Builds a window from its design; it is hidden, and carries the form's name as its object name. Throws
/// Error when there is no such design.
std::unique_ptr<QWidget> BuildWindow(const std::string& formName);

/// What keeps the controls of a form and the widgets of its design from being bound, a sentence each:
/// controls without a widget, with several, or with one of the wrong kind, captions without a place, labels
/// without a caption, and numbered object names that no control has. Empty when all is well.
std::vector<std::string> Mismatches(const Form& form, const QWidget& window);
/// The same for the form's own design.
std::vector<std::string> Mismatches(const Form& form);

}  // namespace lumarin::qt
