#include "hostile/SweepTest.h"

namespace lumarin::hostile {

// Devices have names that are good in every folder, with any ending.
void MakeThingsThatAreNotFiles(const std::function<std::string(const std::string&)>& path,
                               const std::string& ending) {
    path("NUL" + ending);
    path("CON");
}

}  // namespace lumarin::hostile
