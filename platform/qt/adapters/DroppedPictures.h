#pragma once

#include <QTemporaryDir>

#include <memory>
#include <string>
#include <vector>

class QMimeData;

namespace lumarin::qt {

/// What a drop brings to be imported.
struct Dropped {
    std::vector<std::string> paths;
    /// Holds the files of pictures that came as mere data, as a browser hands them over; they go with it.
    std::shared_ptr<QTemporaryDir> kept{};
};

/// Files of this machine; where there are none, the picture that comes with the data. Nothing where only its
/// address comes.
Dropped TakeDropped(const QMimeData& data);

}  // namespace lumarin::qt
