#pragma once

#include <functional>
#include <utility>

namespace lumarin {

/// An event of a control or form with at most one handler, which the window's constructor assigns.
template <class... Args>
class Event {
public:
    using Handler = std::function<void(Args...)>;

    Event& operator=(Handler handler) {
        handler_ = std::move(handler);
        return *this;
    }
    void Raise(Args... args) const {
        if (handler_) handler_(args...);
    }

private:
    Handler handler_;
};

}  // namespace lumarin
