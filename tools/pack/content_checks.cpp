#include "content_checks.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "byte_reader.h"
#include "image_decoder.h"
#include "ini_table.h"
#include "sound_decoder.h"

namespace grub {
namespace {

constexpr std::array<std::string_view, 4> kPictureEndings{".bmp", ".gif", ".jpg", ".jpeg"};
constexpr std::array<std::string_view, 3> kPictureMagics{"BM", "GI", "\xFF\xD8"};

constexpr std::array<std::string_view, 2> kSoundEndings{".wav", ".ogg"};
constexpr std::array<std::string_view, 2> kSoundMagics{"RIFF", "OggS"};
/// The game holds WAV files below this size whole; larger ones are read piece by piece while they play.
constexpr std::size_t kStreamedSize = 262144;
constexpr std::size_t kWavHeader = 44;

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

/// A resource is of a kind by its name or by its first bytes.
bool isOfKind(std::span<const std::string_view> endings, std::span<const std::string_view> magics,
              std::string_view lowerName, std::span<const std::uint8_t> bytes) {
    const auto endsName = [&](std::string_view ending) { return lowerName.ends_with(ending); };
    const auto startsFile = [&](std::string_view magic) { return textOf(bytes).starts_with(magic); };
    return std::any_of(endings.begin(), endings.end(), endsName) ||
           std::any_of(magics.begin(), magics.end(), startsFile);
}

bool soundDecodes(std::span<const std::uint8_t> bytes) {
    const auto decoder = createSoundDecoder(SharedBuffer::view(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    if (!decoder || !decoder->rewind() || decoder->channels() == 0 || decoder->sampleRate() == 0) return false;
    SharedBuffer piece = SharedBuffer::create(4096);
    return decoder->read(piece) > 0;
}

std::string iniFault(std::span<const std::uint8_t> bytes) {
    std::string fault;
    int number = 0;
    const auto unended = forEachIniLine(textOf(bytes), [&](std::string_view line) {
        ++number;
        if (!fault.empty() || parseIniLine(line).kind != IniLine::Kind::Malformed) return;
        fault = "line " + std::to_string(number) + " is neither \"[section]\" nor \"key=value\" and is skipped";
    });
    if (fault.empty() && !unended.empty()) fault = "the last line lacks its line end and is lost";
    return fault;
}

/// The alpha bytes lie behind the pixel offset, one after each three colour bytes; sizes and offset have 16 bits.
bool isInvisibleBmp(std::span<const std::uint8_t> bytes) {
    ByteReader header(bytes);
    const bool isBmp = header.u16() == 0x4D42;
    header.skip(8);
    const std::uint16_t pixelOffset = header.u16();
    header.skip(6);
    const std::size_t width = header.u32() & 0xFFFF;
    const std::size_t height = header.u32() & 0xFFFF;
    header.skip(2);
    const std::uint16_t bitsPerPixel = header.u16();
    if (!header.ok() || !isBmp || bitsPerPixel != 32 || pixelOffset > bytes.size()) return false;
    const auto pixels = bytes.subspan(pixelOffset).first(std::min(width * height * 4, bytes.size() - pixelOffset));
    for (std::size_t i = 3; i < pixels.size(); i += 4) {
        if (pixels[i] != 0) return false;
    }
    return pixels.size() >= 4;
}

}  // namespace

std::string contentFault(std::string_view name, std::span<const std::uint8_t> bytes) {
    const std::string lowerName = lowerCase(name);
    std::string fault;
    if (lowerName.ends_with(".ini")) return iniFault(bytes);
    if (isOfKind(kPictureEndings, kPictureMagics, lowerName, bytes) && !pictureDecodes(bytes, &fault))
        return "the picture does not decode: " + fault;
    if (isOfKind(kSoundEndings, kSoundMagics, lowerName, bytes) && !soundDecodes(bytes))
        return "the sound does not decode";
    return {};
}

std::string contentWarning(std::span<const std::uint8_t> bytes) {
    if (isInvisibleBmp(bytes)) return "the alpha plane is all zero, nothing of the picture will be seen";
    if (textOf(bytes).starts_with("RIFF") && bytes.size() >= kStreamedSize + kWavHeader)
        return "a WAV file of this size is streamed, so as an effect it cannot sound again for seconds";
    return {};
}

}  // namespace grub
