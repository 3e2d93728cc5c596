// The sounds of this build: what each promises to its place in play. Nothing hears them while they are built.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "ini_table.h"
#include "measure.h"
#include "resource_package.h"
#include "sound_bank.h"
#include "sound_file.h"

namespace grub {
namespace {

/// How loud an effect is beside the others, LUFS of its loudest 400 ms, and how long it may be.
struct EffectRow {
    const char* key;
    double loudness;
    double shortest;  // seconds
    double longest;
};

constexpr double kCycle = 0.31;  // eight frames of a walk are 0.32 s; a sound that still plays would not start again

constexpr EffectRow kEffects[] = {
    {"steps", -30, 0.25, kCycle}, {"upsteps", -30, 0.25, kCycle},
    {"trub", -30, 0.25, kCycle},  {"break", -22, 0.3, 1},
    {"landing", -22, 0.1, 0.6},   {"water", -22, 0.2, 0.8},
    {"padenie", -22, 4, 5},       {"getkey", -18, 0.4, 1.2},
    {"opendoor", -18, 0.5, 2},    {"lov", -18, 0.3, 1},
    {"lovrat", -18, 0.2, 0.8},    {"menumove", -8, 0.1, 0.3},
    {"menuclick", -18, 0.1, 0.4}, {"menulist1", -18, 0.3, 1},
    {"menulist2", -18, 0.3, 1},   {"shield", -18, 0.5, 1.5},
    {"anchor", -18, 0.5, 1.5},    {"inv", -18, 0.5, 1.5},
    {"getbonus", -18, 0.5, 1.5},  {"heart", -18, 0.5, 1.5},
    {"skull", -18, 0.5, 1.5},     {"bomb", -14, 1, 2.5},
    {"rat", -14, 1, 3},           {"loose", -14, 1, 3},
    {"winlevel", -14, 2, 3},
};

/// Bytes of the file that sound.ini names for a key of "sound" or "music"; nothing when there is none.
SharedBuffer fileOf(const char* section, const char* key) {
    constexpr std::uint32_t kBuckets = 97;
    static ResourcePackage package(GRUB_DATA_DIR "/sound.pak");
    static const IniTable table(package.load("sound\\sound.ini"), kBuckets);
    return package.load(EngineString("sound\\") + table.getString(section, key));
}

/// The same, decoded; an empty sound when that fails.
SoundRecording soundOf(const char* section, const char* key) {
    const auto decoded = decodeSound(fileOf(section, key).bytes());
    EXPECT_TRUE(decoded) << section << " " << key;
    return decoded.value_or(SoundRecording{kMusicRate, {Samples(kMusicRate)}});
}

/// Largest amplitude from one second to another.
double peakBetween(const SoundRecording& sound, double from, double to) {
    const auto at = [&](double seconds) {
        return std::min(static_cast<std::size_t>(seconds * sound.rate), sound.channels[0].size());
    };
    return peakOf(std::span(sound.channels[0]).subspan(at(from), at(to) - at(from)));
}

TEST(Effects, FitTheirPlaceInPlay) {
    std::set<std::string> keys;
    for (const EffectRow& row : kEffects) {
        SCOPED_TRACE(row.key);
        keys.insert(row.key);
        const SoundRecording sound = soundOf("sound", row.key);
        // A longer file would be streamed; a streamed effect holds a slot and cannot sound again for seconds.
        EXPECT_LT(fileOf("sound", row.key).size(), 256U * 1024U);
        EXPECT_EQ(sound.channels.size(), 1U);
        const SoundMeasures measures = measureSound(sound);
        EXPECT_GE(measures.duration, row.shortest);
        EXPECT_LE(measures.duration, row.longest);
        EXPECT_NEAR(measures.loudest, row.loudness, 1);
        EXPECT_LE(measures.peak, -1.5);
        EXPECT_GE(measures.heard, 0.5) << "small speakers give little of it";
        EXPECT_NEAR(measures.offset, 0, 0.001);
        const double end = measures.duration;
        const double peak = peakOf(sound.channels[0]);
        EXPECT_GT(peakBetween(sound, 0, 0.06), peak / 100) << "it begins late";
        EXPECT_LT(peakBetween(sound, end - 0.020, end), peak / 30) << "it is cut off";
        EXPECT_LT(peakBetween(sound, end - 0.001, end), peak / 200) << "it ends with a click";
    }
    EXPECT_EQ(keys, std::set<std::string>(kEffectKeys.begin(), kEffectKeys.end()));
}

/// What the encoder's noise may do. Drums make larger steps than this all the time, but here the track before the first
/// beat dies away; one whose first samples are missing has 0.02 and more at its seam.
constexpr double kUnheardStep = 0.015;

TEST(Tracks, AreEquallyLoudStereoAndLoopWithoutAClick) {
    for (const char* key : kMusicKeys) {
        SCOPED_TRACE(key);
        const SoundRecording sound = soundOf("music", key);
        EXPECT_EQ(sound.rate, 44100);
        ASSERT_EQ(sound.channels.size(), 2U);
        const SoundMeasures measures = measureSound(sound);
        EXPECT_GE(measures.duration, 30);
        EXPECT_NEAR(measures.integrated, -11, 0.5);
        EXPECT_LE(measures.peak, -1.5);
        EXPECT_GE(measures.heard, 0.5);
        for (const Samples& channel : sound.channels)
            EXPECT_LT(std::abs(channel.front() - channel.back()), kUnheardStep);
    }
}

}  // namespace
}  // namespace grub
