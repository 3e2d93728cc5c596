#include "synth_commands.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <memory>

#include "command.h"
#include "measure.h"
#include "score_source.h"
#include "sound_sheet.h"
#include "sound_source.h"
#include "vorbis_file.h"
#include "wav_file.h"

namespace grub {

namespace {

struct SynthOptions {
    std::string source;
    std::string output;
    std::vector<std::string> files;
};

[[noreturn]] void failAt(const std::string& file, const TextError& error) { failWith(kFailed, error.in(file)); }

SoundRecording recordingOf(const std::string& path) {
    auto recording = decodeSound(inputBytes(path));
    if (!recording) failWith(kFailed, path + ": wanted a 16-bit WAV or an Ogg Vorbis file");
    return std::move(*recording);
}

void renderEffect(const SynthOptions& options) {
    const std::string text = inputText(options.source);
    TextError error;
    const auto source = readSoundSource(text, error);
    if (!source) failAt(options.source, error);
    const auto sound = renderSound(*source, error);
    if (!sound) failAt(options.source, error);
    outputBytes(options.output, wavBytes(*sound, static_cast<int>(source->rate)));
}

void renderMusic(const SynthOptions& options) {
    const std::string text = inputText(options.source);
    TextError error;
    const auto score = readScore(text, error);
    if (!score) failAt(options.source, error);
    outputBytes(options.output, vorbisBytes(renderScore(*score), kMusicRate));
}

void measure(const SynthOptions& options) {
    for (const std::string& file : options.files)
        std::cout << measureLine(measureSound(recordingOf(file))) << "  " << file << '\n';
}

void drawSheet(const SynthOptions& options) {
    std::vector<NamedRecording> sounds;
    for (const std::string& file : options.files)
        sounds.push_back({std::filesystem::path(file).stem().string(), recordingOf(file)});
    if (!writeSoundSheet(options.output, sounds)) failWith(kFailed, options.output + ": cannot be written");
}

}  // namespace

void addSynthCommands(CLI::App& app) {
    const auto options = std::make_shared<SynthOptions>();
    CLI::App* sound = app.add_subcommand("sound", "Render the game's sound effects, and look at sounds");
    sound->require_subcommand(1);

    CLI::App* render = sound->add_subcommand("render", "Render a sound source as a WAV file");
    render->add_option("source", options->source, "Sound source, such as content/sound/steps.txt")->required();
    render->add_option("file", options->output, "WAV file to write")->required();
    render->callback([options] { renderEffect(*options); });

    CLI::App* numbers = sound->add_subcommand("measure", "Print what stands for hearing a WAV or Ogg Vorbis file");
    numbers->add_option("files", options->files, "Files")->required();
    numbers->callback([options] { measure(*options); });

    CLI::App* sheet = sound->add_subcommand("sheet", "Draw waveforms and spectra of WAV or Ogg Vorbis files");
    sheet->add_option("picture", options->output, "PNG file to write")->required();
    sheet->add_option("files", options->files, "Files")->required();
    sheet->callback([options] { drawSheet(*options); });

    CLI::App* music = app.add_subcommand("music", "Render the game's music");
    music->require_subcommand(1);
    CLI::App* score = music->add_subcommand("render", "Render a score as an Ogg Vorbis file");
    score->add_option("score", options->source, "Score, such as content/music/menu.txt")->required();
    score->add_option("file", options->output, "Ogg file to write")->required();
    score->callback([options] { renderMusic(*options); });
}

}  // namespace grub
