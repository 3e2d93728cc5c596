#include <gmock/gmock.h>

#include <cmath>
#include <cstring>

#include "ogg_writer.h"
#include "sound_decoder.h"
#include "wav_writer.h"

namespace grub {
namespace {

using Samples = std::vector<std::int16_t>;

constexpr std::size_t kMostBytes = 10'000'000;  // no file of these tests holds as many
constexpr std::size_t kUsualHeader = 44;
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

Samples samplesOf(const Bytes& file) {
    const Bytes bytes = readAll(*createSoundDecoder(bufferOf(file)));
    Samples samples(bytes.size() / 2);
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    return samples;
}

const Bytes kSamples = noise(1000, 256, 1);
const Bytes kStereoOgg = writeOgg({sine(kFrames, 440, 44100), sine(kFrames, 660, 44100)});
const Bytes kMonoOgg = writeOgg({sine(kFrames, 440, 22050)}, {.rate = 22050});

TEST(SoundDecoder, IsChosenByTheFirstFourBytes) {
    for (const char* other : {"", "RIF", "RIFX", "riff", "OggX"})
        EXPECT_FALSE(createSoundDecoder(bufferOf(Bytes(other, other + std::strlen(other))))) << other;
    EXPECT_FALSE(createSoundDecoder({}));
}

// "channels x rate x bits, size"
std::string formatOf(const Bytes& file) {
    const auto decoder = createSoundDecoder(bufferOf(file));
    return std::to_string(decoder->channels()) + " x " + std::to_string(decoder->sampleRate()) + " x " +
           std::to_string(decoder->bitsPerSample()) + ", " + std::to_string(decoder->dataSize());
}

TEST(SoundDecoder, TellsItsFormat) {
    EXPECT_EQ(formatOf(writeWav({.channels = 2, .rate = 22050, .bits = 8, .samples = kSamples})),
              "2 x 22050 x 8, 1000");
    EXPECT_EQ(formatOf(kStereoOgg), "2 x 44100 x 16, 0");
    EXPECT_EQ(formatOf(kMonoOgg), "1 x 22050 x 16, 0");
    EXPECT_EQ(formatOf(Bytes{'O', 'g', 'g', 'S'}), "0 x 0 x 16, 0");
}

TEST(SoundDecoder, GivesTheSameInPiecesOfAnySizeAfterARewindAndInAClone) {
    for (const Bytes& file : {writeWav({.samples = kSamples}), kStereoOgg}) {
        auto decoder = createSoundDecoder(bufferOf(file));
        const Bytes whole = readAll(*decoder, 1 << 20);
        EXPECT_GE(whole.size(), 1000U);
        EXPECT_TRUE(readAll(*decoder).empty()) << "the end lasts";
        for (const std::uint32_t pieceSize : {4U, 6U, 1000U, 131072U}) {
            ASSERT_TRUE(decoder->rewind());
            EXPECT_EQ(readAll(*decoder, pieceSize), whole) << pieceSize;
        }
        ASSERT_TRUE(decoder->rewind());
        SharedBuffer some = SharedBuffer::create(500);
        EXPECT_EQ(decoder->read(some), 500U);
        const auto twin = decoder->clone();
        ASSERT_TRUE(decoder->rewind());
        EXPECT_EQ(readAll(*decoder), whole);
        decoder.reset();
        EXPECT_EQ(readAll(*twin), whole);
    }
}

TEST(WavDecoder, GivesViewsOfTheFile) {
    const SharedBuffer file = bufferOf(writeWav({.samples = kSamples}));
    const auto decoder = createSoundDecoder(file);
    SharedBuffer most = SharedBuffer::create(990);
    ASSERT_EQ(decoder->read(most), 990U);
    SharedBuffer request = SharedBuffer::create(128 * 1024);
    EXPECT_EQ(decoder->read(request), 10U);
    EXPECT_EQ(request.data(), file.data() + kUsualHeader + 990);
    EXPECT_EQ(request.size(), 10U);
}

// A file that differs from the usual one, and what becomes of its samples.
struct WavCase {
    const char* what;
    Bytes file;
    unsigned channels;    // 0: no sound can be made of it
    std::size_t samples;  // bytes of kSamples that come, from the first one
};

Bytes cutAt(Bytes file, std::size_t size) { return file.resize(size), file; }
// The usual file, with four bytes overwritten at each of these places.
Bytes usualBut(std::initializer_list<std::size_t> places, std::uint32_t value = 0x78787878) {
    Bytes file = writeWav({.samples = kSamples});
    for (const std::size_t at : places)
        for (unsigned i = 0; i < 4; ++i) file[at + i] = static_cast<std::uint8_t>(value >> 8 * i);
    return file;
}

TEST(WavDecoder, TrustsOnlyTheSizeOfTheFile) {
    constexpr std::size_t kDataSize = 40;
    const Bytes list = riffChunk("LIST", Bytes{'o', 'd', 'd'});
    for (const WavCase& row :
         {WavCase{"a longer format chunk", writeWav({.samples = kSamples, .formatTail = Bytes(24, 7)}), 1, 1000},
          {"chunks before the samples", writeWav({.samples = kSamples, .beforeData = list}), 1, 1000},
          {"chunks before the format", writeWav({.samples = kSamples, .beforeFormat = list}), 1, 1000},
          {"samples with another name", usualBut({36}), 1, 1000},
          {"a format that lies about its size", usualBut({16}), 1, 1000},
          {"data size 0", usualBut({kDataSize}, 0), 1, 0},
          {"data size 10", usualBut({kDataSize}, 10), 1, 10},
          {"data size beyond the file", usualBut({kDataSize}, 0xFFFFFFFF), 1, 1000},
          {"cut behind the data size", cutAt(usualBut({}), 44), 1, 0},
          {"cut before the data size", cutAt(usualBut({}), 40), 0, 0},
          {"cut in the size of an extra chunk", cutAt(writeWav({.samples = kSamples, .beforeData = list}), 43), 0, 0},
          {"9 channels", writeWav({.channels = 9, .samples = kSamples}), 9, 1000}}) {
        SCOPED_TRACE(row.what);
        const auto decoder = createSoundDecoder(bufferOf(row.file));
        ASSERT_TRUE(decoder);
        EXPECT_EQ(decoder->channels(), row.channels);
        EXPECT_EQ(decoder->dataSize(), row.samples);
        EXPECT_EQ(readAll(*decoder, 128), cutAt(kSamples, row.samples));
    }
}

// The largest difference from a sine, leaving out the edges, where the codec has less to go by.
int largestError(const Samples& samples, std::size_t channel, std::size_t channels, double hertz, double rate) {
    const std::vector<float> wanted = sine(kFrames, hertz, rate);
    int error = 0;
    for (std::size_t i = 1000; i < kFrames - 1000; ++i) {
        const int ideal = static_cast<int>(std::lround(wanted[i] * 32767.0F));
        error = std::max(error, std::abs(ideal - samples[i * channels + channel]));
    }
    return error;
}

TEST(OggVorbisDecoder, GivesEverySampleFirstChannelFirst) {
    const Samples both = samplesOf(kStereoOgg);
    ASSERT_EQ(both.size(), 2 * kFrames);
    EXPECT_LT(largestError(both, 0, 2, 440, 44100), 400);
    EXPECT_LT(largestError(both, 1, 2, 660, 44100), 400);
    const Samples one = samplesOf(kMonoOgg);
    ASSERT_EQ(one.size(), kFrames);
    EXPECT_LT(largestError(one, 0, 1, 440, 22050), 400);
}

TEST(OggVorbisDecoder, NeedsRoomForAFrame) {
    const auto decoder = createSoundDecoder(bufferOf(kStereoOgg));
    SharedBuffer small = SharedBuffer::create(3);
    EXPECT_EQ(decoder->read(small), 0U);
    const Bytes memory(64);
    SharedBuffer view = SharedBuffer::view(memory.data(), 64);
    EXPECT_EQ(decoder->read(view), 0U) << "a view cannot be written";
    EXPECT_EQ(readAll(*decoder).size(), 4 * kFrames);
}

TEST(OggVorbisDecoder, ClampsSamplesBeyondFullScale) {
    const Samples loud = samplesOf(writeOgg({sine(kFrames, 440, 44100, 2.0F)}));
    ASSERT_EQ(loud.size(), kFrames);
    int largestStep = 0;
    for (std::size_t i = 1; i < loud.size(); ++i) largestStep = std::max(largestStep, std::abs(loud[i] - loud[i - 1]));
    EXPECT_LT(largestStep, 6000) << "a sample that wraps jumps to the other sign";
    EXPECT_EQ(*std::ranges::max_element(loud), 32767);
    EXPECT_EQ(*std::ranges::min_element(loud), -32768);
}

// One good file of many pages, ways to damage it, and what is still heard.
struct OggFault {
    const char* what;
    void (*damage)(Bytes& file);
    bool opens;
    std::size_t fewest;  // frames
    std::size_t most;
};

void append(Bytes& file, const Bytes& more) { file.insert(file.end(), more.begin(), more.end()); }

// Changes a byte in the body of page `page`, whose checksum then is wrong.
void damagePage(Bytes& file, std::size_t page) { file[oggPages(file).at(page).start + 40] ^= 0x55; }

// Changes a byte of the first header and makes the checksum right again.
void lie(Bytes& file, std::size_t at, std::uint8_t value) {
    constexpr std::size_t kPacket = 28;
    file[kPacket + at] = value;
    sealOggPage(file, oggPages(file)[0]);
}

const OggFault kFaults[] = {
    {"nothing", [](Bytes&) {}, true, kFrames, kFrames},
    {"cut in the headers", [](Bytes& f) { f.resize(oggPages(f).at(2).start - 100); }, false, 0, 0},
    {"cut behind the headers", [](Bytes& f) { f.resize(oggPages(f).at(2).start); }, true, 0, 0},
    {"cut in the last page", [](Bytes& f) { f.pop_back(); }, true, 1000, kFrames - 1},
    {"headers damaged", [](Bytes& f) { damagePage(f, 1); }, false, 0, 0},
    {"a page in the middle damaged", [](Bytes& f) { damagePage(f, oggPages(f).size() / 2 + 1); }, true, 1000, kFrames},
    {"another stream behind", [](Bytes& f) { append(f, writeOgg({sine(5000, 880, 44100)}, {.serial = 2})); }, true,
     kFrames, kFrames},
    {"the same stream again", [](Bytes& f) { append(f, Bytes(f)); }, true, kFrames, 2 * kFrames + 2000},
    {"another version", [](Bytes& f) { lie(f, 7, 1); }, false, 0, 0},
    {"no channels", [](Bytes& f) { lie(f, 11, 0); }, false, 0, 0},
    {"9 channels in a setup for one", [](Bytes& f) { lie(f, 11, 9); }, true, 1, 10 * kFrames},
};

TEST(OggVorbisDecoder, EndsTheSoundEarlyOrIsSilentOnDamage) {
    const Bytes good = writeOgg({sine(kFrames, 440, 44100)}, {.smallPages = true});
    ASSERT_GE(oggPages(good).size(), 10U) << "the faults need pages to damage";
    for (const OggFault& fault : kFaults) {
        SCOPED_TRACE(fault.what);
        Bytes file = good;
        fault.damage(file);
        const auto decoder = createSoundDecoder(bufferOf(file));
        ASSERT_TRUE(decoder);
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
