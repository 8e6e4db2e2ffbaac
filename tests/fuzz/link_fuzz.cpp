#include <algorithm>
#include <string>

#include "base/Text.h"
#include "documents/DocumentAddress.h"
#include "documents/DocumentCommands.h"
#include "documents/builder/PdfDraft.h"
#include "fuzz/Promise.h"

using namespace lumarin;

/// Whatever is typed as a link: its command keeps its fields and its line, and what is taken for a web
/// address has no scheme of another kind in front, however it is hidden.
FUZZ(const std::string& typed) {
    for (const std::string& command :
         {AddLinkCommand({"U", "A"}, 7, typed, typed), AddFileCommand({"U", "A"}, 7, "f.pdf", typed) + "|"}) {
        PROMISE(std::count(command.begin(), command.end(), '|') == 6);
        PROMISE(command.find_first_of("\r\n") == std::string::npos);
    }
    std::string solid = text::LowerAscii(typed);
    std::erase_if(solid, [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7F'; });
    for (const char* scheme : {"file:/", "javascript:a", "data:t", "ftp:/"})
        if (solid.starts_with(scheme)) PROMISE(HasOtherScheme(typed));
    if (solid.starts_with("http://") || solid.starts_with("https://")) PROMISE(!HasOtherScheme(typed));

    if (auto draft = ParseDraft(typed)) {
        PROMISE(DraftText(*ParseDraft(DraftText(*draft))) == DraftText(*draft));
        draft->Undo();
        draft->Redo();
        draft->ForgetPages();
        PROMISE(draft->PictureBytes() >= 0 && ParseDraft(DraftText(*draft)));
    }
}
