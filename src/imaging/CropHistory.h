#pragma once

#include <vector>

#include "forms/Geometry.h"
#include "imaging/Imaging.h"
#include "imaging/Tones.h"

namespace lumarin::crop {

/// What a user has made of a picture so far.
struct State {
    Rect box;  ///< relative to the preview's corner
    PictureTurn turn;
    ToneChange tones;
};

/// Boxes that differ by less than a tenth of a twip are the same: places are moved with the stage.
bool Same(const State& left, const State& right);

/// What has led to a state. Steps of the kinds up to `Straighten` that follow each other count as one.
enum class Change { Step, Intensity, Contrast, Straighten, Drag, Placement, Turn, Automatic, Original };

/// The states of one picture, for undo and redo.
class History {
public:
    /// Forgets everything; this is the picture as it was opened.
    void Start(const State& original);
    void Note(const State& state, Change change);

    bool CanUndo() const { return present_ > 0; }
    bool CanRedo() const { return present_ + 1 < states_.size(); }
    /// The state to go back to; the present one when there is none.
    const State& Undo();
    const State& Redo();
    const State& Original() const { return states_.front(); }
    const State& Present() const { return states_[present_]; }

private:
    std::vector<State> states_{1};
    std::size_t present_ = 0;
    Change last_ = Change::Original;
};

}  // namespace lumarin::crop
