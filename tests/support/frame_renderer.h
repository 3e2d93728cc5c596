#pragma once

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "described_pages.h"
#include "fake_renderer.h"
#include "named_pictures.h"

namespace grub {

/// A renderer that tells in words what the frame shows: in < > the numbers of the panel; in [ ] the names of pictures
/// of pages, with their distance from their place (@ down, > right), what a transition covers the screen with, texts.
class FrameRenderer final : public FakeRenderer {
public:
    bool beginFrame() override {
        letters_.clear();
        parts.clear();
        if (onBeginFrame) onBeginFrame();
        return FakeRenderer::beginFrame();
    }
    bool clear(Colour /*colour*/) override { return letters_.clear(), true; }
    bool draw(std::int16_t x, std::int16_t y, const Texture& texture, float /*alpha*/) override {
        letters_.push_back({static_cast<unsigned char>(letterOf(texture)), x, y});
        return true;
    }

    /// What the frame shows.
    [[nodiscard]] std::string words() const {
        const std::string pages = pictures() + texts();
        return panel() + "[" + (pages.empty() ? "" : pages.substr(1)) + "]";
    }

    std::function<void()> onBeginFrame;  ///< may be empty

private:
    struct Letter {
        unsigned char letter;  // of the picture
        int x, y;
    };

    // The digits that end at the places of the four numbers.
    std::string panel() const {
        std::map<int, char> digits;
        for (const auto& [letter, x, y] : letters_)
            if (std::isdigit(letter) != 0 && y == 569) digits[x] = static_cast<char>(letter);
        std::string numbers;
        for (const int end : {177, 345, 525, 728}) {
            std::string number;
            for (int x = end - 10; digits.contains(x); x -= 10) number.insert(0, 1, digits[x]);
            numbers += " " + number;
        }
        return digits.empty() ? "" : "<" + numbers.substr(1) + ">";
    }

    std::string pictures() const {
        std::string names;
        for (const auto& [letter, x, y] : letters_) {
            if (letter < 'a') continue;
            names += " " + kPagePictures.at(static_cast<std::size_t>(letter - 'a'));
            if (x != 0) names += ">" + std::to_string(x);
            if (y != 0) names += "@" + std::to_string(y);
        }
        for (const auto& [letter, name] : {std::pair{'I', " tiles-in"}, {'O', " tiles-out"}, {'S', " stripes"}})
            if (std::ranges::find(letters_, letter, &Letter::letter) != letters_.end()) names += name;
        return names;
    }

    std::string texts() const {
        std::string words;
        int nextX = -1;
        for (const auto& part : parts) {
            if (part.x != nextX) words += ' ';
            words += static_cast<char>(part.srcX);
            nextX = part.x + 1;
        }
        return std::regex_replace(words, std::regex(R"(\d\d/\d\d/\d\d \d\d:\d\d:\d\d)"), "(time)");
    }

    std::vector<Letter> letters_;
};

}  // namespace grub
