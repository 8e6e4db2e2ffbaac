#pragma once

#include <qpdf/QPDF.hh>

#include <deque>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "platform/qpdf/PngFile.h"

namespace lumarin::qpdf {

/// Makes PNG files picture objects of a document: with their packed pixels as they are, or packed for fax
/// where a picture has one bit per pixel and that is smaller. Packing runs in a thread of its own while the
/// caller reads the next picture.
class PictureMaker {
public:
    /// Throws Error with the reason. The file may go afterwards; the object is whole after `Finish`.
    QPDFObjectHandle Make(QPDF& pdf, const std::string& pngPath);
    /// Waits for the pictures that are being packed.
    void Finish();
    /// Lets go of the pixels of all pictures, once they are written.
    void Forget();

private:
    class WaitingData;
    void SetData(QPDFObjectHandle& picture, std::string bytes, const char* filter,
                 const std::string& parameters);
    void SetDataOfFile(QPDFObjectHandle& picture, PngFile& png);

    struct Packing {
        QPDFObjectHandle picture;
        PngFile png;
        std::future<std::string> fax;  ///< "" when it could not be packed
    };
    void FinishOldest();

    std::deque<Packing> packings_;
    std::vector<std::shared_ptr<WaitingData>> waiting_;
};

}  // namespace lumarin::qpdf
