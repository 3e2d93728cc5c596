#include "page_picture.h"

#include <algorithm>
#include <cmath>

#include "jpeg_file.h"
#include "strip.h"

namespace grub {

namespace {

/// Samples a side of a pixel: small pictures take more, as strips do.
constexpr int kManySamples = 4;
constexpr int kFewSamples = 2;
constexpr double kSmallArea = 30000;

/// Less than this would be lost in rounding.
constexpr double kNoticed = 0.05;

void addFaults(const Drawing& drawing, const Fit& fit, std::vector<std::string>& faults) {
    const auto say = [&](const std::string& message) { faults.push_back(drawing.place.says(message)); };
    const auto pixels = [](double length) { return std::to_string(static_cast<int>(std::ceil(length))) + " px"; };
    if (fit.tooWide > kNoticed) say("the words are " + pixels(fit.tooWide) + " too wide");
    if (fit.tooHigh > kNoticed) say("the words are " + pixels(fit.tooHigh) + " too high");
    if (!fit.missing.empty()) say("the font lacks " + fit.missing);
}

PixelImage drawFrame(const PagePicture& picture, int frame, std::vector<std::string>& faults) {
    const Rect area = picture.element.area();
    const int samples = area.width * area.height <= kSmallArea ? kManySamples : kFewSamples;
    Canvas canvas(picture.element.width, picture.element.frameHeight(), samples);
    {
        const auto screen = canvas.placed({-area.x, -area.y});
        Painting painting{canvas, frame, {}, {}, {}};
        for (const Drawing& drawing : picture.drawings) {
            painting.fit = {};
            drawing.draw(painting);
            addFaults(drawing, painting.fit, faults);
        }
    }
    return canvas.picture();
}

/// Says where a picture that must be opaque is not; makes it opaque.
void makeOpaque(const PagePicture& picture, PixelImage& image, std::vector<std::string>& faults) {
    const auto open = std::ranges::find_if(image.pixels, [](const Pixel& p) { return p.a < 255; });
    if (open != image.pixels.end()) {
        const auto at = static_cast<int>(open - image.pixels.begin());
        faults.push_back(picture.element.place.says(picture.element.file + " is not drawn on everywhere, as at " +
                                                    std::to_string(at % image.width) + ", " +
                                                    std::to_string(at / image.width)));
    }
    for (Pixel& p : image.pixels) p.a = 255;
}

}  // namespace

PixelImage drawPicture(const PagePicture& picture, std::vector<std::string>& faults) {
    PixelImage all(picture.element.width, picture.element.height);
    auto to = all.pixels.begin();
    for (int frame = 0; frame < picture.element.frames; ++frame) {
        std::vector<std::string> found;
        const PixelImage image = drawFrame(picture, frame, found);
        to = std::ranges::copy(image.pixels, to).out;
        for (const std::string& fault : found) {
            if (std::ranges::find(faults, fault) == faults.end()) faults.push_back(fault);
        }
    }
    if (picture.isJpeg()) {
        makeOpaque(picture, all, faults);
    } else {
        spreadColours(all);
    }
    return all;
}

std::vector<std::uint8_t> pictureFile(const PagePicture& picture, const PixelImage& image,
                                      std::vector<std::string>& faults) {
    if (!picture.isJpeg()) return bmpBytes(image);
    std::vector<std::uint8_t> bytes = jpegWithout(image, kHoleColour);
    if (bytes.empty())
        faults.push_back(picture.element.place.says(picture.element.file + " keeps pixels of the colour of holes"));
    return bytes;
}

}  // namespace grub
