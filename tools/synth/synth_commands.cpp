#include <filesystem>
#include <iostream>

#include "command.h"
#include "command_lists.h"
#include "measure.h"
#include "score_source.h"
#include "sound_file.h"
#include "sound_sheet.h"
#include "sound_source.h"
#include "typeface.h"

namespace grub {

namespace {

[[noreturn]] void failAt(const std::string& file, const TextError& error) { failWith(kFailed, error.in(file)); }

SoundRecording recordingOf(const std::string& path) {
    auto recording = decodeSound(inputBytes(path));
    if (!recording) failWith(kFailed, path + ": wanted a 16-bit WAV or an Ogg Vorbis file");
    return std::move(*recording);
}

void renderEffect(const Arguments& arguments) {
    const std::string path = arguments.text("SOURCE");
    const std::string text = inputText(path);
    TextError error;
    const auto source = readSoundSource(text, error);
    if (!source) failAt(path, error);
    const auto sound = renderSound(*source, error);
    if (!sound) failAt(path, error);
    outputBytes(arguments.text("FILE"), wavBytes(*sound, static_cast<int>(source->rate)));
}

void renderMusic(const Arguments& arguments) {
    const std::string path = arguments.text("SCORE");
    const std::string text = inputText(path);
    TextError error;
    const auto score = readScore(text, error);
    if (!score) failAt(path, error);
    outputBytes(arguments.text("FILE"), vorbisBytes(renderScore(*score), kMusicRate));
}

void measure(const Arguments& arguments) {
    for (const std::string& file : arguments.texts("FILES"))
        std::cout << measureLine(measureSound(recordingOf(file))) << "  " << file << '\n';
}

void drawSheet(const Arguments& arguments) {
    const std::string& fault = typeface(Face::Body).fault();
    if (!fault.empty()) failWith(kFailed, fault);
    std::vector<NamedRecording> sounds;
    for (const std::string& file : arguments.texts("FILES"))
        sounds.push_back({std::filesystem::path(file).stem().string(), recordingOf(file)});
    const std::string picture = arguments.text("PICTURE");
    if (!writeSoundSheet(picture, sounds)) failWith(kFailed, picture + ": cannot be written");
}

}  // namespace

std::vector<Command> synthCommands() {
    return {
        {"sound", "Render the game's sound effects, and look at sounds", {}, nullptr},
        {"sound render",
         "Render a sound source as a WAV file",
         {word("SOURCE", "sound source, such as content/sound/steps.txt"), word("FILE", "WAV file to write")},
         renderEffect},
        {"sound measure",
         "Print figures that tell how a WAV or Ogg Vorbis file sounds",
         {words("FILES", "WAV or Ogg Vorbis files", true)},
         measure},
        {"sound sheet",
         "Draw waveforms and spectra of WAV or Ogg Vorbis files",
         {word("PICTURE", "PNG file to write"), words("FILES", "WAV or Ogg Vorbis files", true)},
         drawSheet},
        {"music", "Render the game's music", {}, nullptr},
        {"music render",
         "Render a score as an Ogg Vorbis file",
         {word("SCORE", "score, such as content/music/menu.txt"), word("FILE", "Ogg Vorbis file to write")},
         renderMusic},
    };
}

}  // namespace grub
