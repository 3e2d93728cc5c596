#include "page_folder.h"

#include <algorithm>
#include <set>

#include "image_decoder.h"
#include "whole_file.h"

namespace grub {

namespace {

/// What is wrong with the file of a picture; empty when nothing is.
std::string faultOf(const PageElement& element, const std::filesystem::path& file) {
    const auto bytes = readWholeFile(file);
    if (!bytes) return "is missing";
    SharedBuffer buffer = SharedBuffer::create(static_cast<std::uint32_t>(bytes->size()));
    std::ranges::copy(*bytes, buffer.writableData());
    const auto decoder = createImageDecoder(buffer);
    const bool fits = decoder != nullptr && decoder->width() == element.width && decoder->height() == element.height;
    return fits ? "" : "has another size in its file";
}

}  // namespace

void tidyPictures(const PageSource& source, const std::filesystem::path& folder, std::vector<std::string>& faults) {
    std::set<std::string> known;
    for (const PagePicture& picture : source.pictures) {
        const PageElement& element = picture.element;
        known.insert(element.file);
        const std::string fault = faultOf(element, folder / element.file);
        if (!fault.empty()) faults.push_back(element.place.says(element.file + ' ' + fault));
    }
    for (const FontKey& key : source.fonts()) known.insert({key.text() + ".bmp", key.text() + ".bmp.dat"});
    std::error_code ignored;
    std::vector<std::filesystem::path> foreign;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        if (!known.contains(entry.path().filename().string())) foreign.push_back(entry.path());
    }
    for (const auto& path : foreign) std::filesystem::remove(path, ignored);
}

}  // namespace grub
