#pragma once

#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace lumarin {
class Form;
}

namespace lumarin::qt {

/// Builds a window from its design, the resource ":/windows/<form name>.ui"; it is hidden, and carries the
/// form's name as its object name. Throws Error when there is no such design or it is damaged.
std::unique_ptr<QWidget> BuildWindow(const std::string& formName);

/// What keeps the controls of a form and the widgets of its design from being bound, a sentence each:
/// controls without a widget, with several, or with one of the wrong kind, and numbered object names that
/// no control has. Empty when all is well.
std::vector<std::string> Mismatches(const Form& form, const QWidget& window);
/// The same for the form's own design.
std::vector<std::string> Mismatches(const Form& form);

}  // namespace lumarin::qt
