#pragma once

#include <cstdint>
#include <vector>

namespace host {

/// A listing of the demo data. Office and board are the agent's.
struct DemoListing {
    std::int32_t number;
    const char* streetNumber;
    const char* direction;
    const char* street;
    const char* owner;
    const char* status;
    const char* agent;
    int photos;
};

struct DemoOffice {
    const char* id;
    const char* company;
    const char* name;
    int board;
};

struct DemoAgent {
    const char* id;
    const char* last;
    const char* first;
    const char* middleInitial;  ///< Null when there is none.
    const char* office;
};

const std::vector<DemoOffice>& DemoOffices();
const std::vector<DemoAgent>& DemoAgents();
const std::vector<DemoListing>& DemoSales();
const std::vector<DemoListing>& DemoRentals();

}  // namespace host
