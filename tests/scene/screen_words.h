#pragma once

#include <algorithm>
#include <array>
#include <cctype>
#include <functional>
#include <map>
#include <memory>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "glyph_writer.h"
#include "memory_source.h"
#include "named_pictures.h"
#include "save_slots.h"

namespace grub {

/// The pictures of the game's pages; the first one has the letter 'a', and so on.
inline constexpr std::array kPagePictures{"menu",  "menu1", "menu2", "menu3", "menu4", "save",  "save1",
                                          "save2", "save3", "load",  "load1", "load2", "load3", "dog",
                                          "lady",  "rat",   "pit",   "won",   "over"};

/// The pages that the level scene shows: layouts (S) with items (L) of pictures (A), texts for the three slots (T), and
/// entries of dialogs (E), which lie at their real places.
inline constexpr const char* kPages =
    "S in_gamemenu L in_splash A menu E buttonup_01 286,78 E buttonup_02 286,142 E buttonup_03 286,206 "
    "E buttonup_04 286,270 L button_down A menu1 A menu2 A menu3 A menu4 "
    "S in_writemenu L splash A save L game_write E buttonup_01w 214,68 E buttonup_02w 214,156 E buttonup_03w 214,244 "
    "L write_down A save1 A save2 A save3 L game_levels T level L game_time T time "
    "S in_loadmenu L splash A load L game_load E buttonup_01c 214,68 E buttonup_02c 214,156 E buttonup_03c 214,244 "
    "L continue_down A load1 A load2 A load3 L game_levels T level L game_time T time "
    "S loss_polkan L screen A dog L over A over S loss_lady L screen A lady L over A over "
    "S loss_rat L screen A rat L over A over S loss_pit L screen A pit L over A over S win L loss A won";

/// The description file of `kPages`.
[[nodiscard]] inline std::string describedPages() {
    std::istringstream words(kPages);
    std::string text;
    for (std::string tag, name, place; words >> tag >> name;) {
        if (tag == "S" || tag == "L") text += tag + ",\"" + name + "\",0\n";
        if (tag == "A") text += "A,\"\",\"" + name + ".bmp\",0,0,800,400,1,0,0,1,1,0\n";
        if (tag == "E" && words >> place) text += "A,\"" + name + "\",\"entry.bmp\"," + place + ",228,52,1,0,0,1,1,0\n";
        for (int slot = 0; tag == "T" && slot < kSaveSlots; ++slot)
            text += "T,\"\",\"\",290,77,0,0,0,0,0,0,0,0,\"f\",1,0,0,\"?\"\n";
    }
    return text;
}

/// The package of the pages: pictures as high as a dialog, so that they are seen while they slide, and a font whose
/// glyphs lie in the column of their code.
[[nodiscard]] inline std::unique_ptr<ResourceSource> pagePackage() {
    auto package = std::make_unique<MemorySource>();
    for (std::size_t i = 0; i < kPagePictures.size(); ++i)
        package->put(std::string("make_z64\\") + kPagePictures[i] + ".bmp",
                     pictureOf(std::string(1, static_cast<char>('a' + i)), 400));
    package->put("make_z64\\entry.bmp", pictureOf("~", 52));
    package->put("make_z64\\f_1_0.bmp", pictureOf("~", 1));
    std::vector<GlyphRecord> glyphs;
    for (std::uint32_t code = ' '; code <= 'z'; ++code) glyphs.push_back({.a = 0, .b = 1, .c = 0, .x = code});
    package->put("make_z64\\f_1_0.bmp.dat", writeGlyphTable(' ', 'z', 1, glyphs));
    return package;
}

/// A renderer that tells in words what the frame shows: in < > the numbers of the panel; in [ ] the names of pictures
/// of pages, with their distance from their place, what a transition covers the screen with, and texts.
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
        letters_.push_back({letterOf(texture), x, y});
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
        char letter;  // of the picture
        int x, y;
    };

    // The digits that end at the places of the four numbers.
    std::string panel() const {
        std::map<int, char> digits;
        for (const auto& [letter, x, y] : letters_)
            if (std::isdigit(letter) != 0 && y == 569) digits[x] = letter;
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
            if (letter < 'a' || letter == '~') continue;
            names += std::string(" ") + kPagePictures.at(static_cast<std::size_t>(letter - 'a'));
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
