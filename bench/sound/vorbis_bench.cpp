// Our reader of Ogg Vorbis beside libvorbisfile's ov_read: the same file in memory, the same samples, in pieces of the
// same size.
#include <benchmark/benchmark.h>

#include <cstring>

#include <vorbis/vorbisfile.h>

#include "ogg_writer.h"
#include "sound_decoder.h"

namespace grub {
namespace {

constexpr std::size_t kSeconds = 10;
constexpr std::size_t kFrames = 44100 * kSeconds;
constexpr std::uint32_t kPiece = 131072;  // bytes: half of a streaming ring

using Samples = std::vector<std::int16_t>;

// Three notes and some hiss: about as full as a track of the game.
const Bytes& track() {
    static const Bytes file = [] {
        std::vector<std::vector<float>> sides{sine(kFrames, 220, 44100, 0.2F), sine(kFrames, 330, 44100, 0.2F)};
        const auto third = sine(kFrames, 1760, 44100, 0.1F);
        const Bytes hiss = noise(kFrames, 256, 1);
        for (std::size_t i = 0; i < kFrames; ++i) {
            for (auto& side : sides) side[i] += third[i] + (static_cast<float>(hiss[i]) - 128) / 2000;
        }
        return writeOgg(sides);
    }();
    return file;
}

// Takes the decoded samples, piece by piece; the benchmark throws them away.
using Sink = void (*)(std::span<const std::uint8_t> pcm, Samples& samples);

void gather(std::span<const std::uint8_t> pcm, Samples& samples) {
    const std::size_t before = samples.size();
    samples.resize(before + pcm.size() / 2);
    std::memcpy(samples.data() + before, pcm.data(), pcm.size());
}

void throwAway(std::span<const std::uint8_t> pcm, Samples&) { benchmark::DoNotOptimize(pcm.data()); }

Samples decodeWithOurs(const Bytes& file, Sink sink) {
    const auto decoder = createSoundDecoder(SharedBuffer::view(file.data(), static_cast<std::uint32_t>(file.size())));
    Samples samples;
    while (true) {
        SharedBuffer piece = SharedBuffer::create(kPiece);
        const std::uint32_t count = decoder->read(piece);
        if (count == 0) return samples;
        sink(piece.bytes().first(count), samples);
    }
}

std::size_t readSpan(void* to, std::size_t size, std::size_t count, void* source) {
    auto& rest = *static_cast<std::span<const std::uint8_t>*>(source);
    const std::size_t given = std::min(rest.size(), size * count);
    std::memcpy(to, rest.data(), given);
    rest = rest.subspan(given);
    return given / size;
}

Samples decodeWithVorbisfile(const Bytes& file, Sink sink) {
    std::span<const std::uint8_t> rest(file);
    OggVorbis_File vorbis;
    if (ov_open_callbacks(&rest, &vorbis, nullptr, 0, {readSpan, nullptr, nullptr, nullptr}) != 0) return {};
    Samples samples;
    Bytes piece(kPiece);
    int stream = 0;
    while (true) {
        const long count = ov_read(&vorbis, reinterpret_cast<char*>(piece.data()), kPiece, 0, 2, 1, &stream);
        if (count <= 0) break;
        sink(std::span(piece).first(static_cast<std::size_t>(count)), samples);
    }
    ov_clear(&vorbis);
    return samples;
}

// vorbisfile takes 32768 for full scale, we take 32767.
bool agree(const Samples& ours, const Samples& peer) {
    if (ours.size() != 2 * kFrames || peer.size() != ours.size()) return false;
    for (std::size_t i = 0; i < ours.size(); ++i) {
        if (std::abs(ours[i] - peer[i]) > 1) return false;
    }
    return true;
}

void decodeTrack(benchmark::State& state, Samples (*decode)(const Bytes&, Sink)) {
    if (!agree(decodeWithOurs(track(), gather), decodeWithVorbisfile(track(), gather))) {
        return state.SkipWithError("the samples differ");
    }
    for (auto _ : state) benchmark::DoNotOptimize(decode(track(), throwAway));
    state.counters["x_real_time"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * double{kSeconds}, benchmark::Counter::kIsRate);
}

BENCHMARK_CAPTURE(decodeTrack, ours, decodeWithOurs)->Name("vorbis/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decodeTrack, vorbisfile, decodeWithVorbisfile)
    ->Name("vorbis/vorbisfile")
    ->Unit(benchmark::kMillisecond);

// How long a start takes that has to fill a whole ring: the headers, and 1.5 seconds of stereo.
void startStream(benchmark::State& state) {
    const auto decoder =
        createSoundDecoder(SharedBuffer::view(track().data(), static_cast<std::uint32_t>(track().size())));
    for (auto _ : state) {
        decoder->rewind();
        SharedBuffer ring = SharedBuffer::create(2 * kPiece);
        benchmark::DoNotOptimize(decoder->read(ring));
    }
}
BENCHMARK(startStream)->Name("vorbis_start/ours")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace grub
