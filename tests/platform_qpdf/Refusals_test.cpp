#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <functional>

#include "base/Files.h"
#include "platform_qpdf/PdfJudges.h"

namespace lumarin {

namespace {

using namespace judges;
using namespace samples;

class QpdfRefusals : public QpdfLibraryTest {};

TEST_F(QpdfRefusals, Picture_ThatCannotGoIn_IsNamedAndLeavesTheRestOfTheBatch) {
    const VImage photo = Detailed(300, 200);
    const std::string whole = Encode(photo, ".png");
    const auto changed = [&](std::size_t at) {
        std::string bytes = whole;
        bytes[at] = static_cast<char>(bytes[at] ^ 1);
        return bytes;
    };
    const struct {
        const char* name;
        std::string bytes;
        const char* reason;
    } cases[] = {
        {"cut", whole.substr(0, whole.size() / 2), "damaged"},
        {"cut before its end mark", whole.substr(0, whole.size() - 12), "damaged"},
        {"a wrong bit in the header", changed(18), "damaged"},
        {"a wrong bit in the pixels", changed(whole.size() / 2), "damaged"},
        {"empty", "", "not a PNG"},
        {"a JPEG", Encode(photo, ".jpg"), "not a PNG"},
        {"interlaced", Encode(photo, ".png[interlace]"), "interlaced"},
        {"transparent", Encode(photo.bandjoin(128), ".png"), "transparent"},
        {"transparent colours", Encode(photo.bandjoin(128), ".png[palette]"), "transparent"},
    };
    const std::string good = GivenFile("good.png", whole);
    const PdfHandle handle = library->AdultPdfCreate(folder / "batch.pdf");
    EXPECT_TRUE(AddPage(handle, good));
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(library->AdultPdfSetFunction(handle, PdfFunction::PageSize, 5, 5, "0", "0"),
                  PdfStatus::Done);
        library->AdultPdfSetFunction(handle, PdfFunction::PlaceImage, 27, 27, "558", "372");
        EXPECT_EQ(library->AdultPdfAddImage(handle, GivenFile("bad.png", row.bytes)), PdfStatus::Failed);
        EXPECT_NE(library->LastFailure().find(row.reason), std::string::npos) << library->LastFailure();
    }
    EXPECT_FALSE(AddPage(handle, folder / "missing.png"));
    EXPECT_TRUE(AddPage(handle, good));
    EXPECT_EQ(library->AdultPdfClose(handle), PdfStatus::Done) << library->LastFailure();
    EXPECT_EQ(PicturesOf(folder / "batch.pdf").size(), 2u);
}

TEST_F(QpdfRefusals, Call_OutOfOrder_FailsWithItsReason) {
    const std::string png = GivenFile("page.png", Encode(Detailed(30, 20), ".png"));
    const PdfHandle handle = library->AdultPdfCreate(folder / "order.pdf");
    const auto set = [&](int function, int first, int second, const char* third = "0",
                         const char* fourth = "0") {
        return library->AdultPdfSetFunction(handle, static_cast<PdfFunction>(function), first, second, third,
                                            fourth);
    };
    const struct {
        const char* name;
        std::function<PdfStatus()> call;
    } cases[] = {
        {"a place without a page", [&] { return set(104, 27, 27, "5", "5"); }},
        {"a picture without a page", [&] { return library->AdultPdfAddImage(handle, png); }},
        {"the end of no page", [&] { return set(109, 0, 0); }},
        {"an unknown size", [&] { return set(109, 7, 7); }},
        {"two sizes", [&] { return set(109, 5, 6); }},
        {"an unknown function", [&] { return set(110, 5, 5); }},
        {"a picture without a place", [&] { return set(109, 5, 5), library->AdultPdfAddImage(handle, png); }},
        {"no number", [&] { return set(104, 27, 27, "55.8", "738"); }},
        {"a place of no size", [&] { return set(104, 27, 27, "0", "738"); }},
        {"a page begun on a full one",
         [&] {
             set(104, 27, 27, "558", "738");
             library->AdultPdfAddImage(handle, png);
             return set(109, 5, 5);
         }},
        {"a second picture", [&] { return library->AdultPdfAddImage(handle, png); }},
        {"a document that is not open", [&] { return library->AdultPdfClose(handle + 1); }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.call(), PdfStatus::Failed);
        EXPECT_NE(library->LastFailure(), "");
    }
    EXPECT_EQ(set(109, 0, 0), PdfStatus::Done) << "the page was lost";
    EXPECT_EQ(library->AdultPdfClose(handle), PdfStatus::Done);
    EXPECT_EQ(library->LastFailure(), "");
    EXPECT_EQ(library->AdultPdfClose(handle), PdfStatus::Failed) << "closed twice";
}

TEST_F(QpdfRefusals, Document_ThatCannotBeWritten_LeavesTheOldFileAlone) {
    const std::string large = GivenFile("large.png", Encode(Detailed(900, 600), ".png"));
    // No file of this process grows beyond a limit, as on a disk that is full.
    const auto closeOnFullDisk = [&](PdfHandle handle) {
        AddPage(handle, large);
        const auto before = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        const rlimit full{100'000, limit.rlim_max};
        setrlimit(RLIMIT_FSIZE, &full);
        const PdfStatus status = library->AdultPdfClose(handle);
        setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, before);
        return status == PdfStatus::Done;
    };
    const struct {
        const char* name;
        std::function<bool(const std::string& pdf)> write;  ///< true when it claims to be done
    } cases[] = {
        {"no page",
         [&](auto& pdf) { return library->AdultPdfClose(library->AdultPdfCreate(pdf)) == PdfStatus::Done; }},
        {"a full disk, anew", [&](auto& pdf) { return closeOnFullDisk(library->AdultPdfCreate(pdf)); }},
        {"a full disk, one page more",
         [&](auto& pdf) { return closeOnFullDisk(library->AdultPdfOpen(pdf)); }},
        {"not ended",
         [&](auto& pdf) {
             const PdfHandle handle = library->AdultPdfOpen(pdf);
             library->AdultPdfSetFunction(handle, PdfFunction::PageSize, 5, 5, "0", "0");
             library->AdultPdfSetFunction(handle, PdfFunction::PlaceImage, 27, 27, "5", "5");
             library->AdultPdfAddImage(handle, large);
             return library->AdultPdfClose(handle) == PdfStatus::Done;
         }},
        {"a missing folder", [&](auto& pdf) { return library->AdultPdfCreate(pdf + ".missing/a.pdf") != 0; }},
        {"a missing file", [&](auto& pdf) { return library->AdultPdfOpen(pdf + ".missing") != 0; }},
        {"half a document",
         [&](auto& pdf) {
             const std::string bytes = files::ReadAll(pdf);
             return library->AdultPdfOpen(GivenFile("half.pdf", bytes.substr(0, bytes.size() / 2))) != 0;
         }},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const std::string pdf = GivenDocument("CreatePDFTmp.pdf");
        const std::string before = files::ReadAll(pdf);
        EXPECT_FALSE(row.write(pdf));
        EXPECT_NE(library->LastFailure(), "");
        EXPECT_EQ(files::ReadAll(pdf), before);
        EXPECT_FALSE(files::FileExists(files::UnfinishedName(pdf)));
    }
}

}  // namespace

}  // namespace lumarin
