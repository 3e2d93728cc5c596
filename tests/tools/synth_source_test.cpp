#include <gtest/gtest.h>

#include "measure.h"
#include "run_grubtool.h"
#include "score_source.h"
#include "scratch_directory.h"
#include "sound_source.h"
#include "wav_file.h"

namespace grub {
namespace {

struct SourceFault {
    const char* what;
    const char* text;
    int line;
    const char* message;  // part of it
};

constexpr const char* kSmallSound = "length 0.1\nloudness -30\nnoise\n  band 300 3000\n  decay 0.01\n";

const SourceFault kSoundFaults[] = {
    {"nothing", "", 0, "a length, a loudness and a layer"},
    {"no layer", "length 1\nloudness -20\n", 0, "a length, a loudness and a layer"},
    {"an unknown key of the head", "lenght 1\n", 1, "a key of the head or a layer, found 'lenght'"},
    {"a key of a layer in the head", "gain 3\n", 1, "found 'gain'"},
    {"a head key without a value", "length\n", 1, "one value"},
    {"a head key with two", "length 1 2\n", 1, "one value, found '2'"},
    {"a length that is no number", "length one\n", 1, "a number from 0.01 to 10, found 'one'"},
    {"a number with a tail", "length 1s\n", 1, "found '1s'"},
    {"no finite number", "length inf\n", 1, "found 'inf'"},
    {"a loudness that nothing can have", "loudness 3\n", 1, "a number from -60 to -1, found '3'"},
    {"a kind with a name", "noise tap\n", 1, "nothing behind a layer's kind, found 'tap'"},
    {"a head key in a layer", "tone\nlength 0.1\nloudness -20\n", 3, "a key of a layer, found 'loudness'"},
    {"a layer key without a value", "tone\npartials\n", 2, "a value behind the key"},
    {"a layer key with two", "tone\ndecay 1 2\n", 2, "one value, found '2'"},
    {"a decay of nothing", "tone\ndecay 0\n", 2, "a number from 0.0001 to 10"},
    {"a band upside down", "noise\nband 500 400\n", 2, "a band that ends above its start, found '400'"},
    {"half a band", "noise\nband 500\n", 2, "'band LOW HIGH'"},
    {"a mode without a decay", "modes\nmode 1 0\n", 2, "'mode RATIO GAIN DECAY'"},
    {"a glide back in time", "tone\nglide 0:1 0.2:2 0.1:1\n", 2, "a later time than the one before, found '0.1:1'"},
    {"a glide to no pitch", "tone\nglide 0:0\n", 2, "a number from 0.01 to 100, found '0'"},
    {"a glide without a colon", "tone\nglide 1\n", 2, "TIME:FACTOR"},
    {"a note that does not exist", "tone\npitch H4\n", 2, "a note or a number of Hz from 1 to 20000, found 'H4'"},
    {"a note of a ninth octave", "tone\npitch A9\n", 2, "found 'A9'"},
    {"a pitch behind a hit", "tone\nhit 0 A4\npitch A3\n", 3, "the pitch before the first hit"},
    {"a hit in the past", "tone\nhit -1\n", 2, "a number from 0 to 10, found '-1'"},
    {"a hit with too much", "tone\nhit 0 A4 -3 4\n", 2, "'hit TIME [PITCH [GAIN]]', found '4'"},
    {"a tone without partials", "length 1\nloudness -20\ntone\ndecay 1\n", 3, "partials"},
    {"a noise without a band", "length 1\nloudness -20\n\nnoise\ndecay 1\n", 4, "a band"},
    {"a struck body without modes", "length 1\nloudness -20\nmodes\n", 3, "a mode"},
    {"a voice without a throat", "length 1\nloudness -20\nvoice\nlength 1\n", 3, "a formant"},
    {"grains without a number", "length 1\nloudness -20\ngrains\nband 100 200\ndecay 1\n", 3, "count"},
    {"a layer that never ends", "length 1\nloudness -20\ntone\npartials 1\n", 3, "a decay or a length"},
    {"a layer that never ends softly", "length 1\nloudness -20\ntone\npartials 1\ndecay 1\nsustain .5\n", 3,
     "a length"},
};

const SourceFault kScoreFaults[] = {
    {"nothing", "", 0, "a tempo, a loudness and a form"},
    {"an unknown head key", "tempi 100\n", 1, "a key of the head, an instrument or a phrase, found 'tempi'"},
    {"a tempo of nothing", "tempo 0\n", 1, "a number from 20 to 400"},
    {"an instrument without a name", "instrument\n", 1, "one name"},
    {"an instrument twice", "instrument a\ninstrument a\n", 2, "each instrument once"},
    {"a phrase twice", "phrase A\nphrase A\n", 2, "each phrase once"},
    {"a key before the first layer", "instrument a\ngain 3\n", 2, "a layer, found 'gain'"},
    {"a voice that nobody plays", "phrase A\nflute A4\n", 2, "an instrument, found 'flute'"},
    {"a note that does not exist", "instrument a\nphrase A\na A4 H4\n", 3, "a note, x, . or |, found 'H4'"},
    {"half a chord", "instrument a\nphrase A\na A4+\n", 3, "found ''"},
    {"a note of no length", "instrument a\nphrase A\na A4:0\n", 3, "a number from 0.05 to 64, found '0'"},
    {"a bar too early", "instrument a\nphrase A\na A4:3.5 | A4\n", 3, "the end of a bar, found '| after 3.50 beats'"},
    {"an instrument without layers", "tempo 90\nloudness -9\nform A\ninstrument a\n", 4, "a layer"},
    {"an instrument without partials", "tempo 90\nloudness -9\nform A\ninstrument a\ntone\n", 4, "partials"},
    {"an empty phrase", "tempo 90\nloudness -9\nform A\nphrase A\n", 4, "a voice"},
    {"voices of different length",
     "tempo 90\nloudness -9\nform A\ninstrument a\ntone\npartials 1\ninstrument b\ntone\npartials 1\n"
     "phrase A\na A4:4\nb A4:3\n",
     10, "4.00 beats of b, found '3.00 beats'"},
    {"a phrase of half a bar", "tempo 90\nloudness -9\nform A\ninstrument a\ntone\npartials 1\nphrase A\na A4:1\n", 7,
     "beats of a"},
    {"a form of nobody's phrase", "tempo 90\nloudness -9\nform A B\ninstrument a\ntone\npartials 1\nphrase A\na A4:4\n",
     3, "a phrase, found 'B'"},
};

TEST(SoundSourceFormat, SmallestSourceRenders) {
    TextError error;
    const auto source = readSoundSource(kSmallSound, error);
    ASSERT_TRUE(source) << error.message;
    const auto sound = renderSound(*source, error);
    ASSERT_TRUE(sound) << error.message;
    EXPECT_EQ(sound->size(), 4410U);
    EXPECT_NEAR(measureSound({kMusicRate, {*sound}}).loudest, -30, 0.1);
    EXPECT_EQ(renderSound(*source, error), sound);
}

TEST(SoundSourceFormat, NamesTheLineThatItDoesNotUnderstand) {
    for (const SourceFault& fault : kSoundFaults) {
        TextError error{-1, "no error"};
        EXPECT_FALSE(readSoundSource(fault.text, error)) << fault.what;
        EXPECT_EQ(error.line, fault.line) << fault.what << ": " << error.message;
        EXPECT_NE(error.message.find(fault.message), std::string::npos) << fault.what << ": " << error.message;
    }
}

TEST(ScoreFormat, NamesTheLineThatItDoesNotUnderstand) {
    for (const SourceFault& fault : kScoreFaults) {
        TextError error{-1, "no error"};
        EXPECT_FALSE(readScore(fault.text, error)) << fault.what;
        EXPECT_EQ(error.line, fault.line) << fault.what << ": " << error.message;
        EXPECT_NE(error.message.find(fault.message), std::string::npos) << fault.what << ": " << error.message;
    }
}

TEST(SoundSourceFormat, RefusesASoundThatItsLoudnessWouldClip) {
    TextError error;
    const auto source = readSoundSource("length 0.1\nloudness -3\nnoise\n  band 300 3000\n  decay 0.001\n", error);
    ASSERT_TRUE(source) << error.message;
    EXPECT_FALSE(renderSound(*source, error));
    EXPECT_NE(error.message.find("-1.5 dB"), std::string::npos) << error.message;
}

TEST(SoundSourceFormat, NotesAreTwelveEqualStepsAnOctave) {
    EXPECT_DOUBLE_EQ(noteFrequency("A4").value_or(0), 440);
    EXPECT_NEAR(noteFrequency("C4").value_or(0), 261.626, 0.001);
    EXPECT_DOUBLE_EQ(noteFrequency("C#5").value_or(0), noteFrequency("Db5").value_or(1));
    EXPECT_NEAR(noteFrequency("B3").value_or(0) * std::pow(2, 1 / 12.0), noteFrequency("C4").value_or(0), 1e-9);
    for (const char* word : {"", "A", "4", " 4", "A10", "A#", "a4", "A##4", "Ax4"})
        EXPECT_FALSE(noteFrequency(word)) << word;
}

class SynthCommands : public testing::Test {
protected:
    std::string complaintOf(const std::vector<std::string>& words) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(runGrubtool(words), 1);
        return testing::internal::GetCapturedStderr();
    }
    std::string written(const std::string& name, std::string_view text) {
        return scratch_.write(name, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
    }

    ScratchDirectory scratch_;
};

TEST_F(SynthCommands, RenderTheSameBytesOnEveryRun) {
    const std::string source = written("tap.txt", kSmallSound);
    ASSERT_EQ(runGrubtool({"sound", "render", source, scratch_.file("a.wav")}), 0);
    ASSERT_EQ(runGrubtool({"sound", "render", source, scratch_.file("b.wav")}), 0);
    EXPECT_EQ(scratch_.read("a.wav").size(), 44U + 2 * 4410U);
    EXPECT_EQ(scratch_.read("a.wav"), scratch_.read("b.wav"));
}

TEST_F(SynthCommands, MeasureAndDrawWhatTheyRendered) {
    const std::string wav = scratch_.file("tap.wav");
    ASSERT_EQ(runGrubtool({"sound", "render", written("tap.txt", kSmallSound), wav}), 0);
    testing::internal::CaptureStdout();
    ASSERT_EQ(runGrubtool({"sound", "measure", wav}), 0);
    const std::string line = testing::internal::GetCapturedStdout();
    EXPECT_NE(line.find("  0.10 s"), std::string::npos) << line;
    EXPECT_NE(line.find("loudest  -30.0 LUFS"), std::string::npos) << line;
    ASSERT_EQ(runGrubtool({"sound", "sheet", scratch_.file("sheet.png"), wav, wav}), 0);
    EXPECT_GT(scratch_.read("sheet.png").size(), 1000U);
}

TEST_F(SynthCommands, NameFileAndLineOfWhatTheyRefuse) {
    const std::string bad = written("bad.txt", "length 1\nloud 3\n");
    EXPECT_EQ(complaintOf({"sound", "render", bad, scratch_.file("a.wav")}),
              bad + ":2: wanted a key of the head or a layer, found 'loud'\n");
    EXPECT_NE(complaintOf({"music", "render", bad, scratch_.file("a.ogg")}).find("bad.txt:1: "), std::string::npos);
    EXPECT_EQ(complaintOf({"sound", "measure", bad}), bad + ": wanted a 16-bit WAV or an Ogg Vorbis file\n");
    EXPECT_EQ(complaintOf({"sound", "render", scratch_.file("none.txt"), scratch_.file("a.wav")}),
              scratch_.file("none.txt") + ": cannot be read\n");
    EXPECT_TRUE(scratch_.read("a.wav").empty());
}

}  // namespace
}  // namespace grub
