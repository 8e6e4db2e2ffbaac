// bench_overhead PDF: prints how many bytes a page has besides its picture.

#include <qpdf/QPDF.hh>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <iostream>

int main(int count, char** arguments) {
    if (count != 2) return 2;
    try {
        QPDF pdf;
        pdf.processFile(arguments[1]);
        const auto pages = pdf.getAllPages().size();
        auto bytes = static_cast<long long>(std::filesystem::file_size(arguments[1]));
        for (QPDFObjectHandle object : pdf.getAllObjects())
            if (object.isStreamOfType("", "/Image"))
                bytes -= object.getDict().getKey("/Length").getIntValue();
        std::printf("%.0f\n", static_cast<double>(bytes) / static_cast<double>(pages));
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
