#include "platform/qt/UserLayout.h"

#include <QSplitter>

#include <algorithm>
#include <optional>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "platform/qt/Conversions.h"

namespace lumarin::qt {

namespace {

constexpr int Largest = 32767;            // pixels
constexpr std::size_t LongestText = 249;  // characters of a setting

/// Nothing for a text that nobody of us has written.
std::optional<std::vector<int>> Numbers(const std::string& text) {
    std::vector<int> numbers;
    for (const std::string& part : text::Split(text, ',')) {
        const auto number = ParseInteger(part);
        if (!number || *number < 0 || *number > Largest) return std::nullopt;
        numbers.push_back(*number);
    }
    return numbers;
}

}  // namespace

UserLayout::UserLayout(std::string window, const WindowMemory* memory)
    : window_(std::move(window)), memory_(memory) {
    if (memory_ == nullptr) return;
    for (const std::string& part : text::Split(memory_->Recall(window_), ';')) {
        const std::size_t equals = part.find('=');
        if (equals == std::string::npos) continue;
        if (auto numbers = Numbers(part.substr(equals + 1))) parts_[part.substr(0, equals)] = *numbers;
    }
    kept_ = Text();
}

const std::vector<int>& UserLayout::Of(const QString& name) const {
    static const std::vector<int> none;
    const auto found = parts_.find(FromQt(name));
    return found != parts_.end() ? found->second : none;
}

void UserLayout::Set(const QString& name, std::vector<int> numbers) {
    for (int& number : numbers) number = std::clamp(number, 0, Largest);
    parts_[FromQt(name)] = std::move(numbers);
}

void UserLayout::Keep() {
    const std::string text = Text();
    if (memory_ == nullptr || text == kept_ || text.size() > LongestText) return;
    memory_->Keep(window_, text);
    kept_ = text;
}

void UserLayout::FollowSplitters(QWidget& window) {
    for (auto* splitter : window.findChildren<QSplitter*>()) {
        const std::vector<int>& sizes = Of(splitter->objectName());
        if (static_cast<int>(sizes.size()) == splitter->count())
            splitter->setSizes(QList<int>(sizes.begin(), sizes.end()));
        QObject::connect(splitter, &QSplitter::splitterMoved, splitter, [this, splitter] {
            const QList<int> now = splitter->sizes();
            Set(splitter->objectName(), {now.begin(), now.end()});
        });
    }
}

std::string UserLayout::Text() const {
    std::string text;
    for (const auto& [name, numbers] : parts_) {
        text += (text.empty() ? "" : ";") + name + "=";
        for (std::size_t i = 0; i < numbers.size(); ++i)
            text += (i > 0 ? "," : "") + std::to_string(numbers[i]);
    }
    return text;
}

}  // namespace lumarin::qt
