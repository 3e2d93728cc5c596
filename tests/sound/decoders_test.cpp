#include <gmock/gmock.h>

#include <cmath>
#include <cstring>

#include "ogg_writer.h"
#include "sound_decoder.h"
#include "wav_writer.h"

namespace grub {
namespace {

constexpr std::size_t kMostBytes = 10'000'000;  // no file of these tests holds as many
constexpr std::size_t kFrames = 30000;

// Everything that a decoder gives in pieces of `pieceSize` bytes.
Bytes readAll(SoundDecoder& decoder, std::uint32_t pieceSize = 4096) {
    Bytes all;
    while (all.size() < kMostBytes) {
        SharedBuffer buffer = SharedBuffer::create(pieceSize);
        const std::uint32_t count = decoder.read(buffer);
        if (count == 0) break;
        all.insert(all.end(), buffer.data(), buffer.data() + count);
    }
    return all;
}

const Bytes kSamples = noise(1000, 256, 1);
const Bytes kStereoOgg = writeOgg({sine(kFrames, 440, 44100), sine(kFrames, 660, 44100)});
const Bytes kMonoOgg = writeOgg({sine(kFrames, 440, 22050)}, {.rate = 22050});

TEST(SoundDecoder, GivesTheSameInPiecesOfAnySizeAfterARewindAndInAClone) {
    const Bytes wav = writeWav({.channels = 2, .rate = 22050, .bits = 8, .samples = kSamples});
    for (const auto& [file, format, size] : {std::tuple{wav, "2 x 22050 x 8", 1000U},
                                             {kMonoOgg, "1 x 22050 x 16", 0U},
                                             {kStereoOgg, "2 x 44100 x 16", 0U}}) {
        auto decoder = createSoundDecoder(bufferOf(file));
        EXPECT_EQ(std::to_string(decoder->channels()) + " x " + std::to_string(decoder->sampleRate()) + " x " +
                      std::to_string(decoder->bitsPerSample()),
                  format);
        EXPECT_EQ(decoder->dataSize(), size);
        const Bytes whole = readAll(*decoder, 1 << 20);
        EXPECT_TRUE(readAll(*decoder).empty()) << "the end lasts";
        for (const std::uint32_t pieceSize : {4U, 6U, 1000U, 131072U}) {
            ASSERT_TRUE(decoder->rewind());
            EXPECT_EQ(readAll(*decoder, pieceSize), whole) << pieceSize;
        }
        ASSERT_TRUE(decoder->rewind());
        SharedBuffer some = SharedBuffer::create(500);
        EXPECT_EQ(decoder->read(some), 500U);
        const auto twin = decoder->clone();
        decoder.reset();
        EXPECT_EQ(readAll(*twin), whole);
    }
}

// A file that differs from the usual one, and what becomes of its samples.
struct WavCase {
    const char* what;
    Bytes file;
    unsigned channels;    // 0: no sound can be made of it
    std::size_t samples;  // bytes of kSamples that come, from the first one
};

Bytes cutAt(Bytes file, std::size_t size) { return file.resize(size), file; }
// The usual file with four bytes overwritten.
Bytes usualBut(std::size_t at, std::uint32_t value) {
    Bytes file = writeWav({.samples = kSamples});
    put(file, at, value, 4);
    return file;
}

TEST(WavDecoder, TrustsOnlyTheSizeOfTheFile) {
    constexpr std::size_t kFormatSize = 16;
    constexpr std::size_t kDataSize = 40;
    const Bytes list = riffChunk("LIST", bytesOf("odd"));
    for (const WavCase& row :
         {WavCase{"a longer format chunk", writeWav({.samples = kSamples, .formatTail = Bytes(24, 7)}), 1, 1000},
          {"chunks before the samples", writeWav({.samples = kSamples, .beforeData = list}), 1, 1000},
          {"a format that lies about its size", usualBut(kFormatSize, 0x78787878), 1, 1000},
          {"data size 10", usualBut(kDataSize, 10), 1, 10},
          {"data size beyond the file", usualBut(kDataSize, 0xFFFFFFFF), 1, 1000},
          {"cut behind the data size", cutAt(usualBut(kDataSize, 1000), kDataSize + 4), 1, 0},
          {"cut before the data size", cutAt(usualBut(kDataSize, 1000), kDataSize), 0, 0}}) {
        SCOPED_TRACE(row.what);
        const auto decoder = createSoundDecoder(bufferOf(row.file));
        EXPECT_EQ(decoder->channels(), row.channels);
        EXPECT_EQ(readAll(*decoder, 128), cutAt(kSamples, row.samples));
    }
}

// One side of a file that holds a sine. One sine goes far beyond full scale, where a sample must not wrap.
struct OggSide {
    Bytes file;
    std::size_t channels, side;
    double hertz, rate;
    float amplitude;
};

TEST(OggVorbisDecoder, GivesEverySampleFirstChannelFirst) {
    for (const OggSide& row : {OggSide{kStereoOgg, 2, 0, 440, 44100, 0.5F},
                               {kStereoOgg, 2, 1, 660, 44100, 0.5F},
                               {kMonoOgg, 1, 0, 440, 22050, 0.5F},
                               {writeOgg({sine(kFrames, 440, 44100, 2.0F)}), 1, 0, 440, 44100, 2.0F}}) {
        const Bytes bytes = readAll(*createSoundDecoder(bufferOf(row.file)));
        ASSERT_EQ(bytes.size(), kFrames * row.channels * 2);
        const std::vector<float> wanted = sine(kFrames, row.hertz, row.rate, row.amplitude);
        int error = 0;
        for (std::size_t i = 1000; i < kFrames - 1000; ++i) {  // at the edges the codec has less to go by
            std::int16_t sample = 0;
            std::memcpy(&sample, &bytes[(i * row.channels + row.side) * 2], 2);
            const auto ideal = static_cast<int>(std::lround(std::clamp(wanted[i], -1.0F, 1.0F) * 32767.0F));
            error = std::max(error, std::abs(ideal - sample));
        }
        EXPECT_LT(error, 800 * row.amplitude) << row.hertz << " Hz, amplitude " << row.amplitude;
    }
}

// One good file of many pages, ways to damage it, and what is still heard.
struct OggFault {
    const char* what;
    void (*damage)(Bytes& file);
    bool opens;
    std::size_t fewest, most;  // frames
};

void append(Bytes& file, const Bytes& more) { file.insert(file.end(), more.begin(), more.end()); }

const OggFault kFaults[] = {
    {"cut in the headers", [](Bytes& f) { f.resize(oggPages(f).at(2).start - 100); }, false, 0, 0},
    {"cut in the last page", [](Bytes& f) { f.pop_back(); }, true, 1000, kFrames - 1},
    {"a page damaged", [](Bytes& f) { f[oggPages(f).at(9).start + 40] ^= 0x55; }, true, 1000, kFrames},
    {"another stream behind", [](Bytes& f) { append(f, writeOgg({sine(5000, 880, 44100)}, {.serial = 2})); }, true,
     kFrames, kFrames},
};

TEST(OggVorbisDecoder, EndsTheSoundEarlyOrIsSilentOnDamage) {
    const Bytes good = writeOgg({sine(kFrames, 440, 44100)}, {.smallPages = true});
    for (const OggFault& fault : kFaults) {
        SCOPED_TRACE(fault.what);
        Bytes file = good;
        fault.damage(file);
        const auto decoder = createSoundDecoder(bufferOf(file));
        for (int round = 0; round < 2; ++round) {
            EXPECT_EQ(decoder->rewind(), fault.opens);
            const std::size_t frames = readAll(*decoder).size() / 2;
            EXPECT_GE(frames, fault.fewest);
            EXPECT_LE(frames, fault.most);
        }
    }
}

}  // namespace
}  // namespace grub
