#include "host/services/DocService.h"

#include "base/Error.h"

namespace host {

bool DocService::Update(std::string& Command, std::string& ErrorText) {
    ErrorText.clear();
    try {
        server_.ApplyDocument(Command, sender_);
        return false;
    } catch (const lumarin::Error& error) {
        ErrorText = error.Description();
        return true;
    }
}

}  // namespace host
