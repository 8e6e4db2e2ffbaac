#include "imaging/CropHistory.h"

#include <cmath>

namespace lumarin::crop {

bool Same(const State& left, const State& right) {
    const auto near = [&](double Rect::*side) { return std::abs(left.box.*side - right.box.*side) < 0.1; };
    return left.turn == right.turn && left.tones == right.tones && near(&Rect::left) && near(&Rect::top) &&
           near(&Rect::width) && near(&Rect::height);
}

void History::Start(const State& original) {
    states_ = {original};
    present_ = 0;
    last_ = Change::Original;
}

void History::Note(const State& state, Change change) {
    if (Same(state, Present())) return;
    const bool goesOn = change == last_ && change <= Change::Straighten;
    states_.resize(present_ + 1);
    last_ = change;
    if (goesOn) {
        states_.back() = state;
        return;
    }
    states_.push_back(state);
    ++present_;
}

const State& History::Undo() {
    if (CanUndo()) --present_;
    last_ = Change::Original;
    return Present();
}

const State& History::Redo() {
    if (CanRedo()) ++present_;
    last_ = Change::Original;
    return Present();
}

}  // namespace lumarin::crop
