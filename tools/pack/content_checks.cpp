#include <algorithm>
#include <array>
#include <cctype>
#include <numeric>

#include "bitmap_font.h"
#include "byte_reader.h"
#include "image_decoder.h"
#include "ini_table.h"
#include "layout_description.h"
#include "package_verifier.h"
#include "sound_decoder.h"
#include "text_lines.h"

namespace grub {
namespace {

constexpr std::array<std::string_view, 4> kPictureEndings{".bmp", ".gif", ".jpg", ".jpeg"};
constexpr std::array<std::string_view, 3> kPictureMagics{"BM", "GI", "\xFF\xD8"};

/// Texels of the longer side of a texture; the game shows nothing of a larger picture.
constexpr int kLargestSide = 4096;

constexpr std::array<std::string_view, 2> kSoundEndings{".wav", ".ogg"};
constexpr std::array<std::string_view, 2> kSoundMagics{"RIFF", "OggS"};
/// The game holds WAV files below this size whole; larger ones are read piece by piece while they play.
constexpr std::size_t kStreamedSize = 262144;
constexpr std::size_t kWavHeader = 44;
/// Samples per second that the game's sound buffers accept.
constexpr std::uint32_t kLowestRate = 100;
constexpr std::uint32_t kHighestRate = 200000;

std::string_view textOf(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

/// Whether the name or the first bytes say that a resource is of this kind.
bool isOfKind(std::span<const std::string_view> endings, std::span<const std::string_view> magics,
              std::string_view lowerName, std::span<const std::uint8_t> bytes) {
    const auto endsName = [&](std::string_view ending) { return lowerName.ends_with(ending); };
    const auto startsFile = [&](std::string_view magic) { return textOf(bytes).starts_with(magic); };
    return std::any_of(endings.begin(), endings.end(), endsName) ||
           std::any_of(magics.begin(), magics.end(), startsFile);
}

std::string pictureFault(std::span<const std::uint8_t> bytes) {
    std::string fault;
    if (!pictureDecodes(bytes, &fault)) return "the picture does not decode: " + fault;
    const auto decoder = createImageDecoder(SharedBuffer::view(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    const auto [least, most] = std::minmax<int>({decoder->width(), decoder->height()});
    if (least > 0 && most <= kLargestSide) return {};
    return "the picture has " + std::to_string(decoder->width()) + " x " + std::to_string(decoder->height()) +
           " pixels, the game shows 1 to 4096 on a side";
}

/// One line about a format other than PCM or about sizes that do not fit the file; empty when both are good. The game
/// takes every format for PCM and plays a file of wrong sizes in part.
std::string wavFault(std::span<const std::uint8_t> bytes) {
    constexpr std::uint16_t kPcm = 1;
    constexpr std::uint16_t kExtended = 0xFFFE;  // nearly always PCM
    ByteReader reader(bytes);
    reader.skip(12);  // "RIFF", size, "WAVE"
    while (reader.remaining() > 0) {
        const std::string id(textOf(reader.take(4)));
        const std::uint32_t size = reader.u32();
        if (!reader.ok()) return "the WAV file ends with a piece of a chunk";
        if (size > reader.remaining()) {
            return "the chunk " + inQuotes(id) + " claims " + std::to_string(size) + " bytes, the file has " +
                   std::to_string(reader.remaining());
        }
        const std::uint16_t format = ByteReader(reader.take(size)).u16();
        if (id == "fmt " && format != kPcm && format != kExtended)
            return "the WAV file has format " + std::to_string(format) + ", the game plays PCM (1)";
        reader.skip(std::min<std::size_t>(size % 2, reader.remaining()));  // chunks begin at even places
    }
    return {};
}

/// One line about pages that are damaged or missing at the end; empty when there are none. The game plays what is
/// there.
std::string oggFault(std::span<const std::uint8_t> bytes) {
    constexpr std::uint8_t kLastPage = 4;
    ByteReader reader(bytes);
    bool isLast = false;
    while (reader.remaining() > 0) {
        if (textOf(reader.take(4)) != "OggS") return "the Ogg file has no page where one must begin";
        reader.skip(1);  // version
        isLast = (reader.u8() & kLastPage) != 0;
        reader.skip(20);  // position, stream, number, checksum
        const auto lengths = reader.take(reader.u8());
        reader.skip(std::accumulate(lengths.begin(), lengths.end(), std::size_t{0}));
        if (!reader.ok()) return "the Ogg file ends inside a page";
    }
    return isLast ? "" : "the Ogg file ends before its last page";
}

std::string soundFault(std::span<const std::uint8_t> bytes) {
    const auto decoder = createSoundDecoder(SharedBuffer::view(bytes.data(), static_cast<std::uint32_t>(bytes.size())));
    if (!decoder || !decoder->rewind() || decoder->channels() == 0) return "the sound does not decode";
    if (decoder->channels() > 2) {
        return "the sound has " + std::to_string(decoder->channels()) + " channels, the game plays 1 or 2";
    }
    if (decoder->bitsPerSample() != 8 && decoder->bitsPerSample() != 16) {
        return "the sound has " + std::to_string(decoder->bitsPerSample()) + " bits a sample, the game plays 8 or 16";
    }
    if (decoder->sampleRate() < kLowestRate || decoder->sampleRate() > kHighestRate) {
        return "the sound has " + std::to_string(decoder->sampleRate()) +
               " samples a second, the game plays 100 to 200000";
    }
    SharedBuffer piece = SharedBuffer::create(4096);
    if (decoder->read(piece) == 0) return "the sound does not decode";
    return textOf(bytes).starts_with("RIFF") ? wavFault(bytes) : oggFault(bytes);
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

std::string glyphTableFault(std::span<const std::uint8_t> bytes) {
    const GlyphTable table = readGlyphTable(bytes);
    const std::string codes = std::to_string(table.first) + " to " + std::to_string(table.last);
    if (table.glyphs.empty()) return "the glyph table has the codes " + codes + ": no glyph";
    const std::size_t wanted = kGlyphTableHeader + table.glyphs.size() * kGlyphRecordSize;
    if (bytes.size() >= wanted) return {};
    return "the glyph table has " + std::to_string(bytes.size()) + " bytes, the codes " + codes + " take " +
           std::to_string(wanted);
}

std::string descriptionFault(std::span<const std::uint8_t> bytes) {
    std::vector<TextError> faults;
    (void)readLayoutDescription(textOf(bytes), &faults);
    return faults.empty() ? "" : "line " + std::to_string(faults[0].line) + ": " + faults[0].message;
}

/// Whether all alpha bytes are zero. They follow the pixel offset, one behind every three colour bytes. The game uses
/// the lower 16 bits of sizes and offset.
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
    if (lowerName.ends_with(".ini")) return iniFault(bytes);
    if (lowerName.ends_with(kDescriptionEnding)) return descriptionFault(bytes);
    if (lowerName.ends_with(kGlyphTableEnding)) return glyphTableFault(bytes);
    if (isOfKind(kPictureEndings, kPictureMagics, lowerName, bytes)) return pictureFault(bytes);
    if (isOfKind(kSoundEndings, kSoundMagics, lowerName, bytes)) return soundFault(bytes);
    return {};
}

std::string contentWarning(std::span<const std::uint8_t> bytes) {
    if (isInvisibleBmp(bytes)) return "the alpha plane is all zero, nothing of the picture will be seen";
    if (textOf(bytes).starts_with("RIFF") && bytes.size() >= kStreamedSize + kWavHeader)
        return "a WAV file of this size is streamed, so as an effect it cannot sound again for seconds";
    return {};
}

}  // namespace grub
