#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

#include "forms/Form.h"
#include "platform/qt/Owner.h"
#include "platform/qt/QtDesktop.h"
#include "platform/qt/UserLayout.h"
#include "platform/qt/adapters/ControlAdapter.h"

class QEventLoop;

namespace lumarin::qt {

/// The front end of one loaded form: the window, an adapter for each control, and the form's own state.
/// After `Detach` the form may be gone while the window still lives, hidden, until the events that run in
/// it have ended.
class FormWindow final : public QObject, public FormView {
public:
    /// Builds and binds the window. Throws one Error that names everything that cannot be bound.
    /// The memory may be null.
    FormWindow(Form& form, WindowSizes sizes, const WindowMemory* memory);
    ~FormWindow() override;

    QWidget& Window() const { return *window_; }

    /// Shows it in front of its owner and gives it the keyboard.
    void Show(const Owner& owner, Qt::WindowModality modality);
    /// Shows it modal and returns when it was hidden; false when the program ended instead.
    bool RunModal(const Owner& owner);
    void Hide();
    void Detach();
    bool IsDetached() const { return form_ == nullptr; }

    void StateChanged() override;
    void PlaceChanged() override;
    void InnerSizeChanged() override;
    bool HasUsersSize() const override;
    void SizeIsUsual() override { opened_ = window_->size(); }
    void TellPlace() override;
    void* NativeWindow() const override { return window_.get(); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Bind();
    void LayOut();
    QSize OpeningSize() const;
    void KeepLayout();
    void ReportPlaces();
    void ShowEnabled();
    void ReportInnerSize();
    void PlaceOver(const QRect& owner);
    static QMargins LikelyFrame();
    QRect Outer() const;
    void CountFrame();
    void FocusFirst();
    bool Close(QEvent& event);

    Form* form_;
    const WindowSizes sizes_;
    UserLayout layout_;  ///< outlives the window
    std::unique_ptr<QWidget> window_;
    std::vector<std::unique_ptr<ControlAdapter>> adapters_;
    QPointer<QWidget> focusBefore_;  ///< had the keyboard when the window was disabled
    QEventLoop* loop_ = nullptr;     ///< runs while the window is modal
    QMargins assumedFrame_ = LikelyFrame();
    QSize opened_;  ///< the size that nobody but the user changes; none where the code does
    bool laidOut_ = false;
    bool wasShown_ = false;
    bool placedByCode_ = false;
};

}  // namespace lumarin::qt
