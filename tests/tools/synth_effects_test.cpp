#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "fourier.h"
#include "measure.h"
#include "sound_keys.h"
#include "sound_package.h"
#include "wav_file.h"

namespace grub {
namespace {

/// How loud a sound is beside the others, LUFS of its loudest 400 ms, and how long it may be.
struct EffectRow {
    const char* key;
    double loudness;
    double shortest;  // seconds
    double longest;
};

constexpr double kCycle = 0.31;  // eight pictures of a walk are 0.32 s; a sound that still plays would not start again

constexpr std::array kEffects{
    EffectRow{"steps", -30, 0.25, kCycle}, EffectRow{"upsteps", -30, 0.25, kCycle},
    EffectRow{"trub", -30, 0.25, kCycle},  EffectRow{"break", -22, 0.3, 1},
    EffectRow{"landing", -22, 0.1, 0.6},   EffectRow{"water", -22, 0.2, 0.8},
    EffectRow{"padenie", -22, 4, 5},       EffectRow{"getkey", -18, 0.4, 1.2},
    EffectRow{"opendoor", -18, 0.5, 2},    EffectRow{"lov", -18, 0.3, 1},
    EffectRow{"lovrat", -18, 0.2, 0.8},    EffectRow{"menumove", -8, 0.1, 0.3},
    EffectRow{"menuclick", -18, 0.1, 0.4}, EffectRow{"menulist1", -18, 0.3, 1},
    EffectRow{"menulist2", -18, 0.3, 1},   EffectRow{"shield", -18, 0.5, 1.5},
    EffectRow{"anchor", -18, 0.5, 1.5},    EffectRow{"inv", -18, 0.5, 1.5},
    EffectRow{"getbonus", -18, 0.5, 1.5},  EffectRow{"heart", -18, 0.5, 1.5},
    EffectRow{"skull", -18, 0.5, 1.5},     EffectRow{"bomb", -14, 1, 2.5},
    EffectRow{"rat", -14, 1, 3},           EffectRow{"loose", -14, 1, 3},
    EffectRow{"winlevel", -14, 2, 3},
};

/// Largest amplitude from one second to another.
double peakBetween(const SoundRecording& sound, double from, double to) {
    const auto at = [&](double seconds) {
        return std::min(static_cast<std::size_t>(seconds * sound.rate), sound.channels[0].size());
    };
    return peakOf(std::span(sound.channels[0]).subspan(at(from), at(to) - at(from)));
}

/// Hz of the strongest sine around a second.
double strongestAt(const SoundRecording& sound, double seconds) {
    constexpr std::size_t kSize = 8192;
    const auto start = static_cast<std::size_t>(seconds * sound.rate) - kSize / 2;
    Samples piece(kSize);
    for (std::size_t i = 0; i < kSize; ++i)
        piece[i] = sound.channels[0].at(start + i) * std::sin(std::numbers::pi * static_cast<double>(i) / kSize);
    const auto power = powerSpectrum(FourierTransform(kSize), piece);
    const auto strongest = std::max_element(power.begin(), power.end()) - power.begin();
    return static_cast<double>(strongest) * sound.rate / kSize;
}

class EffectSounds : public testing::Test {
protected:
    SoundPackage package_;
};

TEST_F(EffectSounds, EveryKeyOfTheGameHasARow) {
    for (const char* key : kEffectKeys)
        EXPECT_TRUE(std::any_of(kEffects.begin(), kEffects.end(), [&](const EffectRow& row) {
            return std::string_view(row.key) == key;
        })) << key;
    EXPECT_EQ(kEffects.size(), kEffectKeys.size());
}

// A longer file would be streamed, and a streamed effect holds a slot and cannot sound again for seconds.
TEST_F(EffectSounds, AreWavFilesSmallEnoughToBeHeldWhole) {
    for (const EffectRow& row : kEffects) {
        const auto file = package_.file("sound", row.key);
        const SoundRecording sound = package_.recording("sound", row.key);
        ASSERT_GT(file.size(), 44U) << row.key;
        EXPECT_LT(file.size(), 256U * 1024U) << row.key;
        EXPECT_EQ(sound.channels.size(), 1U) << row.key;
        const auto canonical = wavBytes(sound.channels[0], sound.rate);
        EXPECT_EQ(file.size(), canonical.size()) << row.key;
        EXPECT_TRUE(std::equal(canonical.begin(), canonical.begin() + 44, file.begin())) << row.key;
    }
}

TEST_F(EffectSounds, AreAsLongAndAsLoudAsTheirPlaceInPlay) {
    for (const EffectRow& row : kEffects) {
        const SoundMeasures measures = measureSound(package_.recording("sound", row.key));
        EXPECT_GE(measures.duration, row.shortest) << row.key;
        EXPECT_LE(measures.duration, row.longest) << row.key;
        EXPECT_NEAR(measures.loudest, row.loudness, 3) << row.key;
        EXPECT_LE(measures.peak, -1.5) << row.key;
    }
}

TEST_F(EffectSounds, AreHeardOnSmallSpeakers) {
    for (const EffectRow& row : kEffects) {
        const SoundMeasures measures = measureSound(package_.recording("sound", row.key));
        EXPECT_GE(measures.heard, 0.5) << row.key;
        EXPECT_NEAR(measures.offset, 0, 0.001) << row.key;
    }
}

TEST_F(EffectSounds, BeginAtOnceAndEndInSilence) {
    for (const EffectRow& row : kEffects) {
        const SoundRecording sound = package_.recording("sound", row.key);
        const double end = static_cast<double>(sound.channels[0].size()) / sound.rate;
        const double peak = peakOf(sound.channels[0]);
        EXPECT_GT(peakBetween(sound, 0, 0.06), peak / 100) << row.key;
        EXPECT_LT(peakBetween(sound, end - 0.020, end), peak / 30) << row.key;
        EXPECT_LT(peakBetween(sound, end - 0.001, end), peak / 200) << row.key;
    }
}

TEST_F(EffectSounds, FeetAndHandsTouchTwiceInACycle) {
    for (const char* key : {"steps", "upsteps", "trub"}) {
        const SoundRecording sound = package_.recording("sound", key);
        const double between = peakBetween(sound, 0.120, 0.158);
        EXPECT_GT(peakBetween(sound, 0, 0.025), 5 * between) << key;
        EXPECT_GT(peakBetween(sound, 0.160, 0.185), 5 * between) << key;
    }
}

TEST_F(EffectSounds, PitchesGoWhereTheyShould) {
    const auto fall = package_.recording("sound", "padenie");
    for (const double second : {0.5, 1.0, 1.5, 2.0, 2.5, 3.0, 3.5})
        EXPECT_GT(strongestAt(fall, second), strongestAt(fall, second + 0.5) * 1.05) << second;
    const auto lost = package_.recording("sound", "loose");
    EXPECT_NEAR(strongestAt(lost, 0.16), 523, 12);  // C5, A4, E4
    EXPECT_NEAR(strongestAt(lost, 0.50), 440, 10);
    EXPECT_NEAR(strongestAt(lost, 0.86), 330, 10);
    const auto key = package_.recording("sound", "getkey");
    EXPECT_LT(strongestAt(key, 0.1), strongestAt(key, 0.4));
}

}  // namespace
}  // namespace grub
