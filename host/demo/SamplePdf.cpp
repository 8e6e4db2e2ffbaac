#include "host/demo/SamplePdf.h"

#include "base/Error.h"

namespace host {

namespace {

// In points; from the lower left corner, as the format has it.
constexpr int Left = 72;
constexpr int Top = 708;
constexpr int TitleSize = 22;
constexpr int TextSize = 12;
constexpr int LineHeight = 20;

std::string Number(int number) { return std::to_string(number) + " "; }

std::string TextAt(int x, int y, int size, const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '(' || c == ')' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return "BT /F1 " + Number(size) + "Tf " + Number(x) + Number(y) + "Td (" + escaped + ") Tj ET\n";
}

struct Room {
    const char* name;
    int x, y, width, height;
};

constexpr Room Rooms[] = {{"Living room", 72, 380, 250, 240}, {"Kitchen", 322, 480, 200, 140},
                          {"Hall", 322, 380, 200, 100},       {"Bedroom", 72, 180, 180, 200},
                          {"Bath", 252, 180, 120, 200},       {"Office", 372, 180, 150, 200}};

std::string Drawn(const Room& room) {
    constexpr int Margin = 14;
    return Number(room.x) + Number(room.y) + Number(room.width) + Number(room.height) + "re S\n" +
           TextAt(room.x + Margin, room.y + room.height / 2, TextSize, room.name);
}

std::string Stream(const std::string& content) {
    return "<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "endstream";
}

std::string TenDigits(std::size_t number) {
    const std::string digits = std::to_string(number);
    return std::string(10 - digits.size(), '0') + digits;
}

}  // namespace

SamplePdf& SamplePdf::AddText(const std::string& title, const std::vector<std::string>& lines) {
    std::string page = TextAt(Left, Top, TitleSize, title);
    int y = Top - LineHeight;
    for (const std::string& line : lines) page += TextAt(Left, y -= LineHeight, TextSize, line);
    pages_.push_back(page);
    return *this;
}

SamplePdf& SamplePdf::AddFloorPlan(const std::string& title, const std::string& caption) {
    AddText(title, {caption});
    pages_.back() += "3 w\n";
    for (const Room& room : Rooms) pages_.back() += Drawn(room);
    return *this;
}

std::string SamplePdf::Bytes() const {
    // 1 the catalogue, 2 the list of pages, 3 the face, then two objects per page.
    std::string kids;
    for (std::size_t i = 0; i < pages_.size(); ++i) kids += std::to_string(4 + 2 * i) + " 0 R ";
    std::vector<std::string> objects = {
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [ " + kids + "] /Count " + std::to_string(pages_.size()) +
            " /MediaBox [0 0 612 792] /Resources << /Font << /F1 3 0 R >> >> >>",
        "<< /Type /Font /Subtype /Type1 /BaseFont /Helvetica >>"};
    for (const std::string& page : pages_) {
        objects.push_back("<< /Type /Page /Parent 2 0 R /Contents " + std::to_string(objects.size() + 2) +
                          " 0 R >>");
        objects.push_back(Stream(page));
    }
    std::string bytes = "%PDF-1.4\n";
    std::string table = "xref\n0 " + std::to_string(objects.size() + 1) + "\n0000000000 65535 f \n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        table += TenDigits(bytes.size()) + " 00000 n \n";
        bytes += std::to_string(i + 1) + " 0 obj\n" + objects[i] + "\nendobj\n";
    }
    const std::size_t start = bytes.size();
    return bytes + table + "trailer\n<< /Size " + std::to_string(objects.size() + 1) +
           " /Root 1 0 R >>\nstartxref\n" + std::to_string(start) + "\n%%EOF\n";
}

std::string SamplePdf::BytesOf(std::size_t size) const {
    std::string bytes = Bytes();
    const std::size_t end = bytes.rfind("startxref");
    if (bytes.size() + 2 > size)
        throw lumarin::Error(lumarin::ApplicationErrorNumber, "SamplePdf", "The file is longer than that");
    // Before the last lines, which readers look for at the very end.
    return bytes.insert(end, "%" + std::string(size - bytes.size() - 2, '-') + "\n");
}

}  // namespace host
