#include "host/demo/DemoListings.h"

namespace host {

const std::vector<DemoOffice>& DemoOffices() {
    static const std::vector<DemoOffice> offices = {
        {"OF1", "LAKE", "Lakeside Homes - Harbor Office", 1},
        {"OF2", "SUMMIT", "Summit & Vale Realty", 1},
        {"OF3", "LAKE", "Lakeside Homes - Hill Office", 2},
        {"OF4", "SUMMIT", "Summit & Vale Realty West", 2},
    };
    return offices;
}

const std::vector<DemoAgent>& DemoAgents() {
    static const std::vector<DemoAgent> agents = {
        {"A101", "Whitcomb", "Laura", "J", "OF1"},  {"A102", "O'Brien", "Sean", nullptr, "OF1"},
        {"A103", "Smith-Jones", "Ada", "M", "OF1"}, {"A201", "Peña", "Lucía", nullptr, "OF2"},
        {"A202", "Keller", "Marcus", "T", "OF2"},   {"A301", "Müller", "Jörg", nullptr, "OF3"},
        {"A302", "Abara", "Ngozi", "C", "OF3"},     {"A401", "D'Angelo", "Rita", nullptr, "OF4"},
        {"A402", "Lindqvist", "Åsa", "E", "OF4"},
    };
    return agents;
}

const std::vector<DemoListing>& DemoSales() {
    static const std::vector<DemoListing> sales = {
        {10012, "12", "N", "Mill Lane", "Harriet Quill", "2001", "A101", 2},
        {100123, "1420", "N", "Oak Street", "Patrick O'Brien", "2001", "A101", 3},
        {100124, "88", "", "Harbor View Drive", "Mary Smith-Jones", "2001", "A101", 0},
        {100125, "301", "SW", "Elm Road", "Jürgen Müller", "2002", "A101", 1},
        {100126, "7", "E", "Chapel Hill", "Rosa Peña", "2001", "A101", 5},
        {100127, "2215", "W", "Oak Street", "Estate of Lowell", "2003", "A101", 4},
        {100128, "945", "", "Quarry Road", "50%_off Holdings", "2001", "A101", 2},
        {100129, "16", "S", "Elm [Upper] Road", "Lot [7] Trust", "2001", "A101", 1},
        {100130, "410", "NE", "Larch Avenue", "Anne-Marie Côté", "2004", "A101", 0},
        {100131, "33", "N", "St. John's Place", "a-b Investments", "2001", "A102", 3},
        {100132, "1501", "", "Meadow Court", "Tom Fairweather", "2001", "A102", 2},
        {100133, "5", "W", "Brook Street", "Olu Adeyemi", "2005", "A102", 1},
        {100134, "720", "", "Harbor View Drive", "Ines Carvalho", "2001", "A102", 0},
        {100135, "64", "SE", "Sycamore Terrace", "Gwen O'Neill", "2002", "A103", 3},
        {100136, "1108", "", "Foundry Street", "100% Main Partners", "2001", "A103", 2},
        {100137, "290", "N", "Oakwood Lane", "Victor Hale", "2001", "A103", 1},
        {100138, "19", "", "Pine_Ridge Road", "Sam Okafor", "2006", "A103", 0},
        {100500, "77", "E", "Summit Avenue", "Clara Weiss", "2001", "A202", 2},
        {100501, "1340", "", "Vale Road", "Diego Ortiz", "2001", "A202", 3},
        {100502, "8", "NW", "Granite Way", "Lena Petrov", "2002", "A202", 0},
        {100503, "560", "S", "Birch Street", "Patrick O'Brien", "2001", "A201", 1},
        {100504, "21", "", "Orchard Close", "Emil Nørgaard", "2001", "A201", 2},
        {100505, "4402", "W", "River Bend", "Hana Kimura", "2007", "A201", 1},
        {200301, "15", "N", "Castle Hill", "Zoë Laurent", "2001", "A301", 3},
        {200302, "903", "", "Windmill Road", "Peter Grünwald", "2001", "A301", 2},
        {200303, "47", "SE", "Orchard Close", "Amal Haddad", "2003", "A301", 0},
        {200304, "2600", "", "Ridge Boulevard", "Joan Tate", "2001", "A302", 1},
        {200305, "11", "W", "Fern Hollow", "Benedikt Roth", "2001", "A302", 2},
        {200306, "308", "", "Lantern Street", "Iris Blackwood", "2004", "A302", 0},
        {200401, "74", "E", "Western Parade", "Carlo D'Angelo", "2001", "A401", 2},
        {200402, "1212", "", "Cannery Row", "Mei Tanaka", "2001", "A401", 1},
        {200403, "6", "S", "Gull Point", "Noor Rahman", "2002", "A402", 3},
        {200404, "83", "", "Old Mint Street", "Freya Dahl", "2001", "A402", 0},
    };
    return sales;
}

const std::vector<DemoListing>& DemoRentals() {
    static const std::vector<DemoListing> rentals = {
        {500010, "220", "N", "Harbor View Drive", "Lakeside Lettings", "2001", "A101", 2},
        {500011, "9", "", "Mill Lane", "Harriet Quill", "2001", "A101", 0},
        {500012, "1425", "N", "Oak Street", "Rowan O'Dell", "2001", "A102", 1},
        {500013, "55", "W", "Brook Street", "Lakeside Lettings", "2002", "A103", 2},
        {500020, "610", "", "Vale Road", "Summit Lettings", "2001", "A202", 1},
        {500030, "3", "E", "Castle Hill", "Jörg Müller", "2001", "A301", 2},
        {500040, "77", "", "Cannery Row", "Rita D'Angelo", "2001", "A401", 0},
    };
    return rentals;
}

}  // namespace host
