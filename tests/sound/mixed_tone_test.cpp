#include <gmock/gmock.h>

#include "hand_mixed_device.h"
#include "tone.h"

namespace grub {
namespace {

using MixedTone = HandMixedDevice;

struct ToneCase {
    std::uint32_t rate;
    std::size_t seconds;  // two are static at the lower rates, five stream at all of them
    int volume;           // per cent
    int pan;
    double left;  // gain
    double right;
};

// A tone of 440 Hz is heard as one, as loud as it was asked for on both sides, and nothing else is heard.
TEST_F(MixedTone, ComesOutAtItsPitchItsLoudnessAndItsPlace) {
    const double soft = std::pow(10, -3.0 / 20);
    const double softer = std::pow(10, -6.0 / 20);
    for (const ToneCase& row : {ToneCase{11025, 2, 100, 50, 1, 1},
                                {22050, 2, 94, 50, softer, softer},
                                {44100, 2, 100, 53, softer, 1},
                                {48000, 2, 100, 47, 1, softer},
                                {11025, 15, 100, 47, 1, softer},
                                {22050, 15, 94, 50, softer, softer},
                                {44100, 5, 97, 53, soft * softer, soft},
                                {48000, 5, 100, 100, 0, 1}}) {
        const auto samples = tone(440, row.rate, row.rate * row.seconds);
        const auto sound = soundOf(writeWav({.rate = row.rate, .samples = sampleBytes(samples)}));
        sound->setVolume(row.volume);
        sound->setPan(row.pan);
        ASSERT_TRUE(device_.play(*sound, false));
        Samples stereo(row.seconds * 2 * 44100);
        platform::mixSound(stereo);
        const std::size_t lastWholeSecond = 44100 * (row.seconds - 1) - 4410;
        for (const std::size_t side : {0, 1}) {
            const double gain = side == 0 ? row.left : row.right;
            const auto heard = sideOf(stereo, side, lastWholeSecond, 44100);
            if (gain == 0) {
                EXPECT_EQ(heard, std::vector<double>(44100)) << row.rate;
                continue;
            }
            const FoundTone found = findTone(heard, 440, 44100);
            EXPECT_NEAR(found.amplitude, 0.5 * gain, 0.0002) << row.rate << " Hz, side " << side;
            EXPECT_LT(found.residual, -80) << row.rate << " Hz, side " << side;
        }
    }
}

}  // namespace
}  // namespace grub
