#include "sound_sheet.h"

#include <algorithm>

#include "font.h"
#include "fourier.h"
#include "mask.h"
#include "material.h"
#include "pixel_image.h"

namespace grub {

namespace {

constexpr int kTileWidth = 300;
constexpr int kNameHeight = 16;
constexpr double kNameSize = 14;
constexpr double kNameBaseline = 11;
constexpr int kWaveHeight = 60;
constexpr int kSpectrumHeight = 120;
constexpr int kTileHeight = kNameHeight + kWaveHeight + kSpectrumHeight + 4;
constexpr int kTilesPerRow = 5;
constexpr int kMargin = 6;
constexpr double kTopFrequency = 11025;
constexpr std::size_t kWindow = 1024;
constexpr double kDarkest = -70;  // dB under the loudest spot

constexpr Pixel kGround{20, 18, 26, 255};
constexpr Pixel kLine{235, 230, 220, 255};
constexpr Pixel kTick{90, 84, 104, 255};

/// A tile's place, and its sound as one channel.
struct Tile {
    PixelImage& image;
    int x;
    int y;
    const Samples& sound;
    int rate;
    double seconds;  // across the tile

    double timeAt(int column) const { return seconds * column / kTileWidth; }
    std::size_t sampleAt(int column) const { return static_cast<std::size_t>(timeAt(column) * rate); }
};

void drawTicks(const Tile& tile) {
    const double step = tile.seconds > 20 ? 10 : 0.1;
    for (int n = 0; n * step < tile.seconds; ++n) {
        const int column = static_cast<int>(n * step / tile.seconds * kTileWidth);
        for (int row = 0; row < kTileHeight - 4; ++row)
            if (row < kNameHeight + kWaveHeight && row >= kNameHeight - 4)
                tile.image.at(tile.x + column, tile.y + row) = kTick;
    }
}

void drawWave(const Tile& tile) {
    const int middle = tile.y + kNameHeight + kWaveHeight / 2;
    for (int column = 0; column < kTileWidth; ++column) {
        const std::size_t from = std::min(tile.sampleAt(column), tile.sound.size());
        const std::size_t to = std::min(std::max(tile.sampleAt(column + 1), from + 1), tile.sound.size());
        if (from >= to) continue;
        const auto [low, high] = std::minmax_element(tile.sound.begin() + static_cast<std::ptrdiff_t>(from),
                                                     tile.sound.begin() + static_cast<std::ptrdiff_t>(to));
        const int top = static_cast<int>(std::lround(-*high * kWaveHeight / 2));
        const int bottom = static_cast<int>(std::lround(-*low * kWaveHeight / 2));
        for (int row = std::max(top, -kWaveHeight / 2); row <= std::min(bottom, kWaveHeight / 2 - 1); ++row)
            tile.image.at(tile.x + column, middle + row) = kLine;
    }
}

/// From black over violet and orange to white.
Pixel heat(double share) {
    const double s = std::clamp(share, 0.0, 1.0);
    const auto channel = [](double v) { return static_cast<std::uint8_t>(255 * std::clamp(v, 0.0, 1.0)); };
    return {channel(2.2 * s), channel(2.4 * s - 1.0), channel(s < 0.5 ? 1.4 * s : 0.7 - 2.0 * (s - 0.5) * (1.2 - s)),
            255};
}

std::vector<double> columnSpectrum(const FourierTransform& fourier, const Tile& tile, int column) {
    Samples piece(kWindow);
    const auto middle = static_cast<std::ptrdiff_t>(tile.sampleAt(column));
    for (std::size_t i = 0; i < kWindow; ++i) {
        const auto at = middle + static_cast<std::ptrdiff_t>(i) - static_cast<std::ptrdiff_t>(kWindow / 2);
        if (at < 0 || at >= static_cast<std::ptrdiff_t>(tile.sound.size())) continue;
        const double window = 0.5 - 0.5 * std::cos(kTwoPi * static_cast<double>(i) / kWindow);
        piece[i] = window * tile.sound[static_cast<std::size_t>(at)];
    }
    return powerSpectrum(fourier, piece);
}

void drawSpectrum(const Tile& tile) {
    const FourierTransform fourier(kWindow);
    std::vector<std::vector<double>> columns;
    double loudest = 1e-12;
    for (int column = 0; column < kTileWidth; ++column) {
        columns.push_back(columnSpectrum(fourier, tile, column));
        loudest = std::max(loudest, *std::max_element(columns.back().begin(), columns.back().end()));
    }
    const int bottom = tile.y + kNameHeight + kWaveHeight + kSpectrumHeight - 1;
    for (int column = 0; column < kTileWidth; ++column) {
        for (int row = 0; row < kSpectrumHeight; ++row) {
            const double frequency = kTopFrequency * row / kSpectrumHeight;
            const auto bin = static_cast<std::size_t>(frequency * kWindow / tile.rate);
            const auto& power = columns[static_cast<std::size_t>(column)];
            const double level = 10 * std::log10(std::max(power[std::min(bin, power.size() - 1)] / loudest, 1e-12));
            tile.image.at(tile.x + column, bottom - row) = heat(1 - level / kDarkest);
        }
    }
}

/// `share` of the way from the ground to the ink.
Pixel inkOver(Pixel ground, float share) {
    const auto channel = [share](std::uint8_t from, std::uint8_t to) {
        return static_cast<std::uint8_t>(std::lround(mix(from, to, share)));
    };
    return {channel(ground.r, kLine.r), channel(ground.g, kLine.g), channel(ground.b, kLine.b), 255};
}

void drawName(PixelImage& image, int x, int y, const std::string& name) {
    const VectorPath letters = Font(Face::Body, kNameSize).line(name, {0, kNameBaseline});
    const Mask mask = rasterise(letters, Affine{}, {}, 0, {0, 0, kTileWidth, kNameHeight});
    for (int row = mask.box.y0; row < mask.box.y1; ++row) {
        for (int column = mask.box.x0; column < mask.box.x1; ++column) {
            Pixel& pixel = image.at(x + column, y + row);
            pixel = inkOver(pixel, mask.at(column, row));
        }
    }
}

Samples middleOf(const SoundRecording& sound) {
    Samples mono(sound.channels[0].size());
    for (const Samples& channel : sound.channels)
        addSamples(mono, 0, channel, 1 / static_cast<double>(sound.channels.size()));
    return mono;
}

}  // namespace

bool writeSoundSheet(const std::string& path, const std::vector<NamedRecording>& sounds) {
    const int rows = (static_cast<int>(sounds.size()) + kTilesPerRow - 1) / kTilesPerRow;
    const int perRow = std::min(kTilesPerRow, static_cast<int>(sounds.size()));
    PixelImage image(kMargin + perRow * (kTileWidth + kMargin), kMargin + rows * (kTileHeight + kMargin));
    std::fill(image.pixels.begin(), image.pixels.end(), kGround);
    for (std::size_t i = 0; i < sounds.size(); ++i) {
        const int column = static_cast<int>(i) % kTilesPerRow;
        const int row = static_cast<int>(i) / kTilesPerRow;
        const Samples mono = middleOf(sounds[i].sound);
        const double seconds = static_cast<double>(mono.size()) / sounds[i].sound.rate;
        const Tile tile{image,
                        kMargin + column * (kTileWidth + kMargin),
                        kMargin + row * (kTileHeight + kMargin),
                        mono,
                        sounds[i].sound.rate,
                        std::max(1.0, seconds)};
        drawTicks(tile);
        drawWave(tile);
        drawSpectrum(tile);
        drawName(image, tile.x, tile.y, sounds[i].name);
    }
    return writePng(path, image);
}

}  // namespace grub
