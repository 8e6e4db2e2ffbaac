// bench_package ARCHIVE FOLDER: packages all files of the folder.

#include <iostream>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Files.h"
#include "platform/zip/LibzipArchiver.h"

int main(int count, char** arguments) {
    if (count != 3) return 2;
    using namespace lumarin;
    try {
        const std::string folder = arguments[2];
        std::vector<std::string> paths;
        for (const std::string& name : files::List(folder, [](const std::string&) { return true; }))
            paths.push_back(folder + "/" + name);
        zip::LibzipArchiver().Create(arguments[1], paths);
    } catch (const Error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
