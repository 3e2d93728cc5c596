#include <algorithm>
#include <set>
#include <utility>

#include "image_decoder.h"
#include "layout_description.h"
#include "package_verifier.h"

namespace grub {
namespace {

constexpr std::string_view kDescriptionFolder = "data\\";

std::string sizeText(int width, int height) { return std::to_string(width) + " x " + std::to_string(height); }

/// "WIDTH x HEIGHT" of an encoded picture.
std::string sizeOf(std::span<const std::uint8_t> bytes) {
    const auto decoder = createImageDecoder(SharedBuffer::view(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    return decoder != nullptr ? sizeText(decoder->width(), decoder->height()) : "no picture";
}

/// What an interface describes, and the package that must hold its pictures and fonts.
class InterfaceCheck {
public:
    /// `entry` is the name of the description in its own package.
    InterfaceCheck(std::string_view entry, const LayoutDescription& description, std::vector<PackageFinding>& findings)
        : entry_(entry), description_(description), findings_(findings) {
        entry.remove_prefix(kDescriptionFolder.size());
        entry.remove_suffix(kDescriptionEnding.size());
        name_ = entry;
    }

    void run(const std::filesystem::path& directory) {
        std::string fault;
        const auto package = readPackageContents(directory / (name_ + ".pak"), fault);
        if (!package) return report("needs " + name_ + ".pak beside its package: " + fault);
        for (const Layout& layout : description_.layouts) checkLayout(layout, *package);
        if (files_.size() > kMostAnimations) {
            report("names " + std::to_string(files_.size()) + " pictures, the game shows " +
                   std::to_string(kMostAnimations));
        }
        for (const std::string& key : description_.fontKeys) checkFont(key, *package);
    }

private:
    void report(std::string text) { findings_.push_back({.entry = entry_, .text = std::move(text)}); }
    void lacks(const std::string& what, const std::string& resource) {
        report(what + " is \"" + resource + "\", which " + name_ + ".pak lacks");
    }

    void checkLayout(const Layout& layout, const PackageContents& package) {
        for (const LayoutItem& item : layout.items) {
            for (const PictureElement& element : item.pictures) {
                const std::string place = "layout \"" + layout.name + "\", item \"" + item.name + "\": a picture";
                if (element.cols > 0 && element.rows > kMostCells / element.cols) {
                    report(place + " has " + sizeText(element.cols, element.rows) + " cells, the game draws at most " +
                           std::to_string(kMostCells));
                }
                if (files_.insert(element.file).second) checkPicture(place, element, package);
            }
        }
    }

    /// The first element of a file cuts it into frames.
    void checkPicture(const std::string& place, const PictureElement& element, const PackageContents& package) {
        const std::string resource = name_ + "\\" + element.file;
        const auto bytes = package.bytesOf(resource);
        if (!bytes) return lacks(place, resource);
        const std::string described = sizeText(element.w, element.h);
        const std::string found = sizeOf(*bytes);
        if (described != found)
            return report(place + " is described as " + described + ", \"" + resource + "\" is " + found);
        if (element.frames > 1 && element.h % element.frames != 0) {
            report(place + " is " + std::to_string(element.h) + " pixels high, which " +
                   std::to_string(element.frames) + " frames do not divide");
        }
    }

    void checkFont(const std::string& key, const PackageContents& package) {
        const std::string image = name_ + "\\" + key + ".bmp";
        for (const std::string& resource : {image, image + ".dat"}) {
            if (!package.bytesOf(resource)) return lacks("a font", resource);
        }
    }

    std::string entry_;
    std::string name_;  // of the interface
    const LayoutDescription& description_;
    std::vector<PackageFinding>& findings_;
    std::set<std::string> files_;  // checked so far
};

}  // namespace

void checkInterfaces(const PackageContents& package, const std::filesystem::path& directory,
                     std::vector<PackageFinding>& findings) {
    for (const PackageEntry& entry : package.entries) {
        const bool isDescription =
            entry.name.starts_with(kDescriptionFolder) && entry.name.ends_with(kDescriptionEnding);
        const auto bytes = isDescription ? package.bytesOf(entry) : std::nullopt;
        if (!bytes) continue;
        const LayoutDescription description =
            readLayoutDescription({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
        InterfaceCheck(entry.name, description, findings).run(directory);
    }
}

}  // namespace grub
