#pragma once

#include <QWidget>

class QLabel;

namespace lumarin::qt {

class PictureWidget;

/// Beside a file dialog: the picture under the cursor, its size in pixels and bytes.
class PreviewPane final : public QWidget {
public:
    explicit PreviewPane(QWidget* parent = nullptr);

    /// What is not a picture shows "No preview".
    void ShowFile(const QString& path);

private:
    PictureWidget* picture_;
    QLabel* pixels_;
    QLabel* bytes_;
};

}  // namespace lumarin::qt
