#pragma once

#include <functional>

#include "forms/Desktop.h"

/// A screen with nothing on it. What a person would do in a modal window, which then closes, is done by code.
class NobodysDesktop final : public lumarin::Desktop {
public:
    std::function<void()> whileModal;

    void Load(lumarin::Form&) override {}
    void Show(lumarin::Form&, const lumarin::OwnerWindow*) override {}
    void ShowModal(lumarin::Form& form, const lumarin::OwnerWindow*) override {
        if (whileModal) whileModal();
        form.Hide();
    }
    void Hide(lumarin::Form&) override {}
    void Unload(lumarin::Form&) override {}
    void DestroyLater(std::unique_ptr<lumarin::Form>) override {}
    lumarin::Answer ShowMessage(const lumarin::Message&, const lumarin::Form*) override {
        return lumarin::Answer::Cancel;
    }
    std::vector<std::string> ChooseFiles(const lumarin::FileDialog&, const lumarin::Form*) override {
        return {};
    }
    std::string ChooseFileToSave(const lumarin::SaveDialog&, const lumarin::Form*) override { return {}; }
    void PopupMenu(lumarin::ToolBar&, const std::string&) override {}
    void SetPointer(lumarin::Pointer) override {}
    lumarin::Size ScreenSize() const override { return {}; }
    void ProcessPendingEvents() override {}
    bool ClipboardHasPicture() const override { return false; }
    lumarin::PicturePtr ClipboardPicture() const override { return nullptr; }
    std::vector<std::string> ClipboardFiles() const override { return {}; }
    void SetClipboardText(const std::string&) override {}
    void SetClipboardPicture(const lumarin::Picture&) override {}
    void ClearClipboard() override {}
    void OpenHelp(const std::string&, int) override {}
    void OpenInBrowser(const std::string&) override {}
    void OpenDocument(const std::string&) override {}
};
