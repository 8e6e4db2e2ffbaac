#pragma once

#include <utility>

/// For what must be put back however a block ends: by its last line, an early return or an exception.
namespace lumarin {

/// Does something when the block ends. The action must not throw.
template <class Action>
class [[nodiscard]] AtEnd {
public:
    explicit AtEnd(Action action) : action_(std::move(action)) {}
    ~AtEnd() { action_(); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

private:
    Action action_;
};

/// Gives a variable another value until the block ends.
template <class Value>
class [[nodiscard]] Meanwhile {
public:
    template <class Other>
    Meanwhile(Value& variable, Other&& value)
        : variable_(variable), before_(std::exchange(variable, std::forward<Other>(value))) {}
    ~Meanwhile() { variable_ = std::move(before_); }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    Value& variable_;
    Value before_;
};

}  // namespace lumarin
