#include <gmock/gmock.h>

#include <cmath>
#include <cstring>

#include "ogg_writer.h"
#include "sound_decoder.h"

namespace grub {
namespace {

using Samples = std::vector<std::int16_t>;

constexpr std::size_t kFrames = 30000;
constexpr std::size_t kForever = 10'000'000;  // samples; no file of these tests holds as many

const Bytes& stereo() {
    static const Bytes file = writeOgg({sine(kFrames, 440, 44100), sine(kFrames, 660, 44100)});
    return file;
}
const Bytes& mono() {
    static const Bytes file = writeOgg({sine(kFrames, 440, 22050)}, {.rate = 22050});
    return file;
}

// All samples that a decoder gives, channels interleaved, in pieces of so many bytes.
Samples readAll(SoundDecoder& decoder, std::uint32_t pieceSize = 4096) {
    Samples all;
    while (all.size() < kForever) {
        SharedBuffer buffer = SharedBuffer::create(pieceSize);
        const std::uint32_t count = decoder.read(buffer);
        if (count == 0) break;
        const std::size_t before = all.size();
        all.resize(before + count / 2);
        std::memcpy(all.data() + before, buffer.data(), count);
    }
    return all;
}

Samples decoded(const Bytes& file) {
    const auto decoder = createSoundDecoder(bufferOf(file));
    return readAll(*decoder);
}

TEST(OggVorbisDecoder, TellsTheStreamsFormatAndNoSize) {
    const auto decoder = createSoundDecoder(bufferOf(stereo()));
    ASSERT_TRUE(decoder);
    EXPECT_EQ(decoder->channels(), 2);
    EXPECT_EQ(decoder->sampleRate(), 44100U);
    EXPECT_EQ(decoder->bitsPerSample(), 16);
    EXPECT_EQ(decoder->dataSize(), 0U);
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
    const Samples both = decoded(stereo());
    ASSERT_EQ(both.size(), 2 * kFrames);
    EXPECT_LT(largestError(both, 0, 2, 440, 44100), 400);
    EXPECT_LT(largestError(both, 1, 2, 660, 44100), 400);
    const Samples one = decoded(mono());
    ASSERT_EQ(one.size(), kFrames);
    EXPECT_LT(largestError(one, 0, 1, 440, 22050), 400);
}

TEST(OggVorbisDecoder, PiecesOfAnySizeGiveTheSameSamples) {
    const Samples whole = decoded(stereo());
    for (const std::uint32_t pieceSize : {4U, 6U, 1000U, 131072U}) {
        const auto decoder = createSoundDecoder(bufferOf(stereo()));
        EXPECT_EQ(readAll(*decoder, pieceSize), whole) << pieceSize;
    }
}

TEST(OggVorbisDecoder, ARequestWithoutRoomForAFrameOrInAViewGivesNothing) {
    const auto decoder = createSoundDecoder(bufferOf(stereo()));
    SharedBuffer small = SharedBuffer::create(3);
    EXPECT_EQ(decoder->read(small), 0U);
    const Bytes memory(64);
    SharedBuffer view = SharedBuffer::view(memory.data(), 64);
    EXPECT_EQ(decoder->read(view), 0U);
    EXPECT_EQ(readAll(*decoder).size(), 2 * kFrames);
}

TEST(OggVorbisDecoder, RewindAndCloneStartAtTheFirstSample) {
    const Samples whole = decoded(stereo());
    auto decoder = createSoundDecoder(bufferOf(stereo()));
    SharedBuffer some = SharedBuffer::create(20000);
    ASSERT_EQ(decoder->read(some), 20000U);
    const auto twin = decoder->clone();
    ASSERT_TRUE(decoder->rewind());
    EXPECT_EQ(readAll(*decoder), whole);
    decoder.reset();
    EXPECT_EQ(readAll(*twin), whole);
}

TEST(OggVorbisDecoder, SamplesBeyondFullScaleAreClamped) {
    const Samples loud = decoded(writeOgg({sine(kFrames, 440, 44100, 2.0F)}));
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

std::size_t pageCount(const Bytes& file) { return oggPages(file).size(); }

const OggFault kFaults[] = {
    {"nothing", [](Bytes&) {}, true, kFrames, kFrames},
    {"nothing but the magic", [](Bytes& f) { f.resize(4); }, false, 0, 0},
    {"cut in the first page", [](Bytes& f) { f.resize(40); }, false, 0, 0},
    {"cut behind the first page", [](Bytes& f) { f.resize(oggPages(f).at(1).start); }, false, 0, 0},
    {"cut in the headers", [](Bytes& f) { f.resize(oggPages(f).at(2).start - 100); }, false, 0, 0},
    {"cut behind the headers", [](Bytes& f) { f.resize(oggPages(f).at(2).start); }, true, 0, 0},
    {"cut in the last page", [](Bytes& f) { f.pop_back(); }, true, 1000, kFrames - 1},
    {"first page damaged", [](Bytes& f) { damagePage(f, 0); }, false, 0, 0},
    {"headers damaged", [](Bytes& f) { damagePage(f, 1); }, false, 0, 0},
    {"a page in the middle damaged", [](Bytes& f) { damagePage(f, pageCount(f) / 2 + 1); }, true, 1000, kFrames},
    {"all pages of sound damaged",
     [](Bytes& f) {
         for (std::size_t i = 2; i < pageCount(f); ++i) damagePage(f, i);
     },
     true, 0, 0},
    {"noise behind the end", [](Bytes& f) { append(f, noise(20000, 256, 1)); }, true, kFrames, kFrames},
    {"noise between two pages",
     [](Bytes& f) {
         const Bytes junk = noise(20000, 256, 2);
         f.insert(f.begin() + static_cast<std::ptrdiff_t>(oggPages(f).at(3).start), junk.begin(), junk.end());
     },
     true, 1000, kFrames},
    {"another stream behind", [](Bytes& f) { append(f, writeOgg({sine(5000, 880, 44100)}, {.serial = 2})); }, true,
     kFrames, kFrames},
    {"the same stream again", [](Bytes& f) { append(f, Bytes(f)); }, true, kFrames, 2 * kFrames + 2000},
};

TEST(OggVorbisDecoder, DamageEndsTheSoundEarlyOrMakesItSilent) {
    const Bytes good = writeOgg({sine(kFrames, 440, 44100)}, {.smallPages = true});
    ASSERT_GE(pageCount(good), 10U) << "the faults need pages to damage";
    for (const OggFault& fault : kFaults) {
        Bytes file = good;
        fault.damage(file);
        const auto decoder = createSoundDecoder(bufferOf(file));
        ASSERT_TRUE(decoder) << fault.what;
        for (int round = 0; round < 3; ++round) {
            EXPECT_EQ(decoder->rewind(), fault.opens) << fault.what;
            const std::size_t frames = readAll(*decoder).size();
            EXPECT_GE(frames, fault.fewest) << fault.what;
            EXPECT_LE(frames, fault.most) << fault.what;
        }
    }
}

TEST(OggVorbisDecoder, HeadersThatLieAreRefused) {
    struct Lie {
        const char* what;
        std::size_t at;  // in the first packet
        std::uint8_t value;
        bool opens;
    };
    constexpr std::size_t kPacket = 28;
    for (const Lie& lie : {Lie{"none", 7, 0, true},
                           {"another version", 7, 1, false},
                           {"no channels", 11, 0, false},
                           {"blocks of 1 and 2 samples", 28, 0x10, false},
                           {"blocks of 32 Ki", 28, 0xFF, false},
                           {"no end mark", 29, 0, false},
                           {"9 channels in a setup for one", 11, 9, true}}) {
        Bytes file = mono();
        file[kPacket + lie.at] = lie.value;
        sealOggPage(file, oggPages(file)[0]);
        const auto decoder = createSoundDecoder(bufferOf(file));
        EXPECT_EQ(decoder->rewind(), lie.opens) << lie.what;
        EXPECT_EQ(readAll(*decoder).empty(), !lie.opens) << lie.what;
    }
    Bytes noRate = mono();
    std::fill_n(noRate.begin() + kPacket + 12, 4, std::uint8_t{0});
    sealOggPage(noRate, oggPages(noRate)[0]);
    EXPECT_FALSE(createSoundDecoder(bufferOf(noRate))->rewind());
}

TEST(OggVorbisDecoder, AFileThatCannotBeOpenedTellsNoFormat) {
    const auto decoder = createSoundDecoder(bufferOf(Bytes{'O', 'g', 'g', 'S'}));
    EXPECT_EQ(decoder->channels(), 0);
    EXPECT_EQ(decoder->sampleRate(), 0U);
    EXPECT_FALSE(decoder->clone()->rewind());
}

}  // namespace
}  // namespace grub
