#include <gmock/gmock.h>

#include "sound_decoder.h"
#include "wav_writer.h"

namespace grub {
namespace {

constexpr std::size_t kUsualHeader = 44;

// Everything a decoder gives in pieces of `pieceSize` bytes.
Bytes readAll(SoundDecoder& decoder, std::uint32_t pieceSize) {
    Bytes all;
    while (true) {
        SharedBuffer buffer = SharedBuffer::create(pieceSize);
        const std::uint32_t count = decoder.read(buffer);
        if (count == 0) return all;
        all.insert(all.end(), buffer.data(), buffer.data() + count);
    }
}

const Bytes kSamples = noise(1000, 256, 1);

TEST(WavDecoder, GivesTheStoredSamplesAndTheFormatAsItStands) {
    const auto decoder =
        createSoundDecoder(bufferOf(writeWav({.channels = 2, .rate = 22050, .bits = 8, .samples = kSamples})));
    ASSERT_TRUE(decoder);
    EXPECT_EQ(decoder->channels(), 2);
    EXPECT_EQ(decoder->sampleRate(), 22050U);
    EXPECT_EQ(decoder->bitsPerSample(), 8);
    EXPECT_EQ(decoder->dataSize(), 1000U);
    EXPECT_EQ(readAll(*decoder, 300), kSamples);
    EXPECT_EQ(readAll(*decoder, 300), Bytes()) << "the end lasts";
    EXPECT_TRUE(decoder->rewind());
    EXPECT_EQ(readAll(*decoder, 1 << 20), kSamples);
}

TEST(SoundFormat, SmallestWavIsTheseBytes) {
    EXPECT_EQ(writeWav({.samples = Bytes(4)}),
              (Bytes{0x52, 0x49, 0x46, 0x46, 0x28, 0x00, 0x00, 0x00, 0x57, 0x41, 0x56, 0x45, 0x66, 0x6D, 0x74, 0x20,
                     0x10, 0x00, 0x00, 0x00, 0x01, 0x00, 0x01, 0x00, 0x44, 0xAC, 0x00, 0x00, 0x88, 0x58, 0x01, 0x00,
                     0x02, 0x00, 0x10, 0x00, 0x64, 0x61, 0x74, 0x61, 0x04, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00}));
}

TEST(WavDecoder, TheLastReadIsAViewOfTheBytesThatAreLeft) {
    const SharedBuffer file = bufferOf(writeWav({.samples = kSamples}));
    const auto decoder = createSoundDecoder(file);
    SharedBuffer most = SharedBuffer::create(990);
    ASSERT_EQ(decoder->read(most), 990U);
    SharedBuffer request = SharedBuffer::create(128 * 1024);
    EXPECT_EQ(decoder->read(request), 10U);
    EXPECT_EQ(request.data(), file.data() + kUsualHeader + 990);
    EXPECT_EQ(request.size(), 10U);
}

TEST(WavDecoder, ACloneStartsAtTheFirstSampleAndOutlivesItsModel) {
    auto decoder = createSoundDecoder(bufferOf(writeWav({.samples = kSamples})));
    SharedBuffer some = SharedBuffer::create(500);
    decoder->read(some);
    const auto twin = decoder->clone();
    decoder.reset();
    EXPECT_EQ(readAll(*twin, 300), kSamples);
}

TEST(SoundDecoder, IsChosenByTheFirstFourBytes) {
    const auto decoderOf = [](std::string_view text) {
        return createSoundDecoder(bufferOf(Bytes(text.begin(), text.end())));
    };
    EXPECT_TRUE(decoderOf("RIFF"));
    EXPECT_TRUE(decoderOf("OggS"));
    for (const char* other : {"", "RIF", "RIFX", "riff", "OggX", "fLaC", "ID3\3"})
        EXPECT_FALSE(decoderOf(other)) << other;
    EXPECT_FALSE(createSoundDecoder({}));
}

// One good file and the ways in which files differ from it; what becomes of the samples.
struct WavCase {
    const char* what;
    Bytes (*make)();
    unsigned channels;    // 0: no sound can be made of it
    std::size_t samples;  // bytes of kSamples that come, from the first one
};

Bytes usual() { return writeWav({.samples = kSamples}); }
Bytes withDataSize(std::uint32_t size) {
    Bytes file = usual();
    for (unsigned i = 0; i < 4; ++i) file[40 + i] = static_cast<std::uint8_t>(size >> 8 * i);
    return file;
}
Bytes cutAt(Bytes file, std::size_t size) { return file.resize(size), file; }
Bytes list() { return riffChunk("LIST", Bytes{'o', 'd', 'd'}); }
// The usual file, with chunk ids and sizes that nobody needs to look at overwritten.
Bytes usualBut(std::initializer_list<std::size_t> overwritten) {
    Bytes file = usual();
    for (const std::size_t at : overwritten)
        std::fill_n(file.begin() + static_cast<std::ptrdiff_t>(at), 4, std::uint8_t{'x'});
    return file;
}
Bytes withOtherNames() { return usualBut({8, 12, 36}); }

const WavCase kCases[] = {
    {"the good file", usual, 1, 1000},
    {"a longer format chunk", [] { return writeWav({.samples = kSamples, .formatTail = Bytes(24, 7)}); }, 1, 1000},
    {"chunks before the samples", [] { return writeWav({.samples = kSamples, .beforeData = list()}); }, 1, 1000},
    {"chunks before the format", [] { return writeWav({.samples = kSamples, .beforeFormat = list()}); }, 1, 1000},
    {"a chunk behind",
     [] {
         Bytes file = usual();
         append(file, 0x5453494C, 4);
         append(file, 0, 4);
         return file;
     },
     1, 1000},
    {"chunks with other names", withOtherNames, 1, 1000},
    {"samples with another name", [] { return usualBut({36}); }, 1, 1000},
    {"a format that lies about its size", [] { return usualBut({16}); }, 1, 1000},
    {"data size 0", [] { return withDataSize(0); }, 1, 0},
    {"data size 10", [] { return withDataSize(10); }, 1, 10},
    {"data size beyond the file", [] { return withDataSize(1001); }, 1, 1000},
    {"data size 4 GiB - 1", [] { return withDataSize(0xFFFFFFFF); }, 1, 1000},
    {"cut behind the samples' size", [] { return cutAt(usual(), 44); }, 1, 0},
    {"cut before the samples' size", [] { return cutAt(usual(), 40); }, 0, 0},
    {"cut in the format", [] { return cutAt(usual(), 30); }, 0, 0},
    {"cut in the size of an extra chunk",
     [] { return cutAt(writeWav({.samples = kSamples, .beforeData = list()}), 43); }, 0, 0},
    {"other names, cut", [] { return cutAt(withOtherNames(), 43); }, 0, 0},
    {"no channels", [] { return writeWav({.channels = 0, .samples = kSamples}); }, 0, 1000},
    {"9 channels", [] { return writeWav({.channels = 9, .samples = kSamples}); }, 9, 1000},
};

TEST(WavDecoder, TrustsOnlyTheSizeOfTheFile) {
    for (const WavCase& row : kCases) {
        const auto decoder = createSoundDecoder(bufferOf(row.make()));
        ASSERT_TRUE(decoder) << row.what;
        EXPECT_EQ(decoder->channels(), row.channels) << row.what;
        EXPECT_EQ(decoder->dataSize(), row.samples) << row.what;
        EXPECT_TRUE(decoder->rewind()) << row.what;
        EXPECT_EQ(readAll(*decoder, 128), cutAt(kSamples, row.samples)) << row.what;
    }
}

TEST(WavDecoder, CutAnywhereGivesTheSamplesThatAreThere) {
    for (std::size_t size = 4; size < 1044; ++size) {
        const auto decoder = createSoundDecoder(bufferOf(cutAt(usual(), size)));
        const std::size_t left = size > kUsualHeader ? size - kUsualHeader : 0;
        ASSERT_EQ(readAll(*decoder, 128), cutAt(kSamples, left)) << size;
    }
}

}  // namespace
}  // namespace grub
