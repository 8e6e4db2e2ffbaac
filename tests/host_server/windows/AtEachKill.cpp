#include "host_server/ServerTest.h"

namespace host {

// A process of this system cannot be copied in the middle of a test.
void ServerTest::AtEachKill(const std::function<void(Server&)>& work, const std::function<void()>& check) {
    work(*server_);
    Restart();
    check();
}

}  // namespace host
