#include "platform/vips/JpegDecoder.h"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

#include <jpeglib.h>

#include <jerror.h>

namespace lumarin::vips {

namespace {

constexpr int MostScans = 100;   // of a progressive file; each one costs a pass over the whole picture
constexpr int MostLeftOver = 2;  // bytes that careless encoders put before the end marker
constexpr int RowsAtOnce = 8;

// The decoder leaves by a long jump, so no function between it and `Try` may own anything.

/// One pass over one file. It lives as long as the image that it fills or somebody may ask about its rows.
class JpegReader {
public:
    explicit JpegReader(VSource source) : bytes_(std::move(source)) {
        decoder_.err = jpeg_std_error(&errors_);
        decoder_.client_data = this;
        // NOLINTNEXTLINE(cert-err52-cpp): the decoder is in C and must not be returned to
        errors_.error_exit = [](j_common_ptr decoder) { std::longjmp(Self(decoder).escape_, 1); };
        errors_.emit_message = [](j_common_ptr decoder, int level) { Self(decoder).Heed(level); };
        progress_.progress_monitor = [](j_common_ptr decoder) { Self(decoder).CheckScans(); };
    }
    ~JpegReader() { jpeg_destroy_decompress(&decoder_); }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;

    /// False with the library's reason set.
    bool Start(int shrink) {
        return Try([&] {
            jpeg_create_decompress(&decoder_);
            decoder_.progress = &progress_;
            Connect();
            jpeg_read_header(&decoder_, TRUE);
            inHeader_ = false;
            decoder_.scale_num = 1;
            decoder_.scale_denom = static_cast<unsigned>(shrink);
            jpeg_calc_output_dimensions(&decoder_);
        });
    }

    const jpeg_decompress_struct& Header() const { return decoder_; }

    bool ReadRows(VipsRegion* region) {
        const VipsRect& rows = region->valid;
        return Try([&] {
            if (decoder_.output_scanline == 0) jpeg_start_decompress(&decoder_);
            for (int y = 0; y < rows.height; ++y) {
                JSAMPROW row = VIPS_REGION_ADDR(region, 0, rows.top + y);
                jpeg_read_scanlines(&decoder_, &row, 1);
                if (IsInverted()) Invert(row);
            }
        });
    }

    bool Check(Rows rows) {
        std::vector<JSAMPLE> unused(std::size_t{decoder_.output_width} *
                                    static_cast<std::size_t>(decoder_.output_components));
        JSAMPROW row = unused.data();
        return Try([&] {
            if (rows == Rows::Read) return;
            while (decoder_.output_scanline < decoder_.output_height) jpeg_read_scanlines(&decoder_, &row, 1);
            Finish();
        });
    }

private:
    static JpegReader& Self(j_common_ptr decoder) { return *static_cast<JpegReader*>(decoder->client_data); }
    static JpegReader& Self(j_decompress_ptr decoder) {
        return Self(reinterpret_cast<j_common_ptr>(decoder));
    }

    template <class Step>
    bool Try(Step step) {
        if (setjmp(escape_) != 0) failed_ = true;  // NOLINT(cert-err52-cpp)
        if (!failed_) {
            step();
            return true;
        }
        std::array<char, JMSG_LENGTH_MAX> reason{};
        errors_.format_message(reinterpret_cast<j_common_ptr>(&decoder_), reason.data());
        vips_error("jpeg", "%s", reason.data());
        return false;
    }

    void Connect() {
        decoder_.src = &input_;
        input_.init_source = [](j_decompress_ptr) {};
        input_.term_source = [](j_decompress_ptr) {};
        input_.resync_to_restart = jpeg_resync_to_restart;
        input_.fill_input_buffer = [](j_decompress_ptr decoder) -> boolean { return Self(decoder).Fill(); };
        input_.skip_input_data = [](j_decompress_ptr decoder, long count) { Self(decoder).Skip(count); };
    }

    /// Behind the file's end stands an end marker, whether the file has its own or not: data that are missing
    /// too make the decoder complain.
    boolean Fill() {
        const gint64 count = vips_source_read(bytes_.get_source(), buffer_.data(), buffer_.size());
        if (count < 0) ERREXIT(&decoder_, JERR_FILE_READ);
        input_.next_input_byte = buffer_.data();
        input_.bytes_in_buffer = static_cast<std::size_t>(count);
        if (count == 0) {
            buffer_[0] = 0xFF;
            buffer_[1] = JPEG_EOI;
            input_.bytes_in_buffer = 2;
            atEnd_ = true;
        }
        return TRUE;
    }

    void Skip(long count) {
        while (count > static_cast<long>(input_.bytes_in_buffer) && !atEnd_) {
            count -= static_cast<long>(input_.bytes_in_buffer);
            Fill();
        }
        const auto skipped = std::min(static_cast<std::size_t>(std::max(0L, count)), input_.bytes_in_buffer);
        input_.next_input_byte += skipped;
        input_.bytes_in_buffer -= skipped;
    }

    /// What the decoder says about the picture's data ends the reading; it would go on with grey.
    void Heed(int level) {
        if (level >= 0 || inHeader_) return;
        switch (errors_.msg_code) {
            case JWRN_HIT_MARKER:
            case JWRN_HUFF_BAD_CODE:
            case JWRN_ARITH_BAD_CODE:
            case JWRN_MUST_RESYNC:
                break;
            case JWRN_EXTRANEOUS_DATA:
                if (errors_.msg_parm.i[1] == JPEG_EOI && errors_.msg_parm.i[0] <= MostLeftOver) return;
                break;
            default:
                return;
        }
        errors_.error_exit(reinterpret_cast<j_common_ptr>(&decoder_));
    }

    void CheckScans() {
        if (decoder_.input_scan_number > MostScans) ERREXIT(&decoder_, JERR_BAD_PROGRESSION);
    }

    /// Data that are left over have been damaged: the rows consist of others than they should. Some cameras
    /// fill the space up to the end marker, with zeros.
    void Finish() {
        while (!atEnd_ && (input_.bytes_in_buffer > 0 || Fill()) && *input_.next_input_byte == 0) Skip(1);
        jpeg_finish_decompress(&decoder_);
    }

    // The program that most such files come from stores them so.
    bool IsInverted() const {
        return decoder_.out_color_space == JCS_CMYK && decoder_.saw_Adobe_marker != FALSE;
    }
    void Invert(JSAMPROW row) const {
        const std::size_t count = std::size_t{decoder_.output_width} * 4;
        std::for_each(row, row + count, [](JSAMPLE& value) { value = static_cast<JSAMPLE>(255 - value); });
    }

    VSource bytes_;
    jpeg_decompress_struct decoder_{};
    jpeg_error_mgr errors_{};
    jpeg_progress_mgr progress_{};
    jpeg_source_mgr input_{};
    std::array<JOCTET, 65536> buffer_;
    std::jmp_buf escape_;
    bool inHeader_ = true;
    bool atEnd_ = false;
    bool failed_ = false;
};

using SharedReader = std::shared_ptr<JpegReader>;

int ReadTile(VipsRegion* region, void*, void* reader, void*, gboolean*) {
    return (*static_cast<SharedReader*>(reader))->ReadRows(region) ? 0 : -1;
}

void GiveUp(VipsImage*, gpointer reader) { delete static_cast<SharedReader*>(reader); }

VipsInterpretation MeaningOf(J_COLOR_SPACE space) {
    switch (space) {
        case JCS_GRAYSCALE:
            return VIPS_INTERPRETATION_B_W;
        case JCS_CMYK:
            return VIPS_INTERPRETATION_CMYK;
        default:
            return VIPS_INTERPRETATION_sRGB;
    }
}

}  // namespace

DecodedJpeg DecodeJpeg(const VSource& source, int shrink) {
    const auto reader = std::make_shared<JpegReader>(source);
    if (!reader->Start(shrink)) throw VError();
    const jpeg_decompress_struct& header = reader->Header();
    const VImage image(vips_image_new());
    VipsImage* raw = image.get_image();
    vips_image_init_fields(raw, static_cast<int>(header.output_width), static_cast<int>(header.output_height),
                           header.output_components, VIPS_FORMAT_UCHAR, VIPS_CODING_NONE,
                           MeaningOf(header.out_color_space), 1.0, 1.0);
    vips_image_set_int(raw, VIPS_META_SEQUENTIAL, 1);
    auto* const kept = new SharedReader(reader);
    g_signal_connect(raw, "close", G_CALLBACK(GiveUp), kept);
    if (vips_image_pipelinev(raw, VIPS_DEMAND_STYLE_FATSTRIP, nullptr) != 0 ||
        vips_image_generate(raw, nullptr, ReadTile, nullptr, kept, nullptr) != 0)
        throw VError();
    const auto check = [reader](Rows rows) {
        if (!reader->Check(rows)) throw VError();
    };
    return {image.sequential(VImage::option()->set("tile_height", RowsAtOnce)), check};
}

}  // namespace lumarin::vips
