#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <numeric>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "glyph_writer.h"
#include "named_pictures.h"
#include "package_writer.h"
#include "picture.h"
#include "save_slots.h"

namespace grub {

/// The pages that the level scene shows and the pictures between games: layouts (S) with items (L) of pictures (A) and
/// strips of so many frames (F), texts for the three slots (T) or in the second font (G), and unseen elements (E) for
/// the mouse. Elements of one name lie in one place.
inline const std::string kGamePages =
    "S in_gamemenu L in_splash A menu E buttonup_01 286,78 E buttonup_02 286,142 E buttonup_03 286,206 "
    "E buttonup_04 286,270 L button_down A menu1 A menu2 A menu3 A menu4 "
    "S in_writemenu L splash A save L game_write E buttonup_01w 214,68 E buttonup_02w 214,156 E buttonup_03w 214,244 "
    "L write_down A save1 A save2 A save3 L game_levels T level L game_time T time "
    "S in_loadmenu L splash A load L game_load E buttonup_01c 214,68 E buttonup_02c 214,156 E buttonup_03c 214,244 "
    "L continue_down A load1 A load2 A load3 L game_levels T level L game_time T time "
    "S loss_polkan L screen A dog L over A over S loss_lady L screen A lady L over A over "
    "S loss_rat L screen A rat L over A over S loss_pit L screen A pit L over A over S win L loss A won "
    "S zast L fon A opening S komiks1 L fon A comic1 S komiks2 L fon A comic2 S komiks3 L fon A comic3 "
    "S komiksfin L fon A comic4 ";

/// What all pages of the menu have: the column of buttons.
inline const std::string kColumnOfPages =
    "L button_down A =start A =load A =options A =scores A =help A =exit "
    "L button_up A -start A -load A -options A -scores A -help A -exit "
    "L column E start_down 30,174 E load_down 30,232 E options_down 30,290 E score_down 30,348 E help_down 30,406 "
    "E exit_down 30,464 ";

/// The pages of the menu.
inline const std::string kMenuPages =
    "S start_menu L splash A splash L game_logo A title L hit E start_logo 380,292 " + kColumnOfPages +
    "S load_menu L logo A logo L splash A splash L game_load A load L continue_down A load1 A load2 A load3 "
    "L hit E buttonup_01c 214,68 E buttonup_02c 214,156 E buttonup_03c 214,244 L game_levels T level L game_time T "
    "time " +
    kColumnOfPages +
    "S options_menu L splash A splash L game_options A options L trav_sound F sound 9 F SOUND 9 A box "
    "L trav_music F music 9 F MUSIC 9 A BOX L full_down A TICK L full_down_up A tick "
    "L hit E trav1n 450,186 E trav1a 450,274 E full_stat 386,346 " +
    kColumnOfPages +
    "S highscore_menu L splash A splash L game_score A scores L in_splash A wall L game_save A name L ok_down A carved "
    "L ok_up A OK L user_text G name L hit E buttonup_01 286,78 " +
    kColumnOfPages +
    "S exit L splash A splash L logo_exit A exit L logo A logo L a_button_stat A answers L a_button_down A QUIETLY "
    "A NOISILY L hit E start_logo 380,292 " +
    kColumnOfPages +
    "S help_menu L logo A logo L splash A splash L help_00 A sheet1 L help_01 A sheet2 L help_02 A sheet3 "
    "L arrow_stat A left A right L arrow_down A LEFT A RIGHT "
    "L hit E start_logo 380,292 E abuttonstat_01u 300,300 E abuttonstat_02u 600,300 " +
    kColumnOfPages +
    "S a_exit L background A night L logo A logo L splash A splash L text_info A leave? L a_button_stat A answers "
    "L a_button_down A LEAVE A STAY A DIG ";

/// A word of pages and its name.
struct PageWord {
    std::string tag, name;
    std::string place;  // of an element for the mouse: "X,Y"
    int frames = 1;
};

/// The words of a constant above.
[[nodiscard]] inline std::vector<PageWord> wordsOf(const std::string& pages) {
    std::istringstream text(pages);
    std::vector<PageWord> words;
    for (PageWord word; text >> word.tag >> word.name; words.push_back(std::exchange(word, {}))) {
        if (word.tag == "E") text >> word.place;
        if (word.tag == "F") text >> word.frames;
    }
    return words;
}

/// The names of all their pictures; the first one has the letter 'a', and so on. Frames count from 0: "sound0".
inline const std::vector<std::string> kPagePictures = [] {
    std::vector<std::string> names;
    for (const PageWord& word : wordsOf(kGamePages + kMenuPages)) {
        const bool isNew = std::ranges::find(names, word.name) == names.end();
        if (word.tag == "A" && isNew) names.push_back(word.name);
        for (int frame = 0; word.tag == "F" && frame < word.frames; ++frame)
            names.push_back(word.name + std::to_string(frame));
    }
    return names;
}();

/// Pictures are as high as a dialog, so that they are seen while they slide.
inline constexpr int kPageHeight = 400;

/// The description file of pages.
[[nodiscard]] inline std::string describedPages(const std::string& pages) {
    std::ostringstream text;
    for (const auto& [tag, name, place, frames] : wordsOf(pages)) {
        if (tag == "S" || tag == "L") text << tag << ",\"" << name << "\",0\n";
        if (tag == "A" || tag == "F")
            text << "A,\"\",\"" << name << ".bmp\",0,0,800," << frames * kPageHeight << "," << frames << ",0,0,1,1,0\n";
        if (tag == "E") text << "A,\"" << name << "\",\"entry.bmp\"," << place << ",228,52,1,0,0,1,1,0\n";
        const int texts = tag == "T" ? kSaveSlots : tag == "G" ? 1 : 0;
        for (int i = 0; i < texts; ++i)
            text << "T,\"\",\"\",290,77,0,0,0,0,0,0,0,0,\"" << (tag == "T" ? 'f' : 'g') << "\",1,0,0,\"?\"\n";
    }
    return text.str();
}

/// The package of interface `name`: the pictures of its pages, and two fonts whose glyphs lie in the column of their
/// code.
[[nodiscard]] inline Bytes pagePackage(const std::string& name, const std::string& pages) {
    PackageWriter package;
    const auto add = [&](const std::string& file, Bytes bytes) { package.add(name + "\\" + file, std::move(bytes)); };
    for (const PageWord& word : wordsOf(pages)) {
        if (word.tag != "A" && word.tag != "F") continue;
        const auto first = std::ranges::find(kPagePictures, word.name + (word.tag == "F" ? "0" : ""));
        std::string letters(static_cast<std::size_t>(word.frames), 'a');
        std::iota(letters.begin(), letters.end(), static_cast<char>('a' + (first - kPagePictures.begin())));
        add(word.name + ".bmp", pictureOf(letters, unsigned{kPageHeight}));
    }
    add("entry.bmp", pictureOf("_", 52));
    std::vector<GlyphRecord> glyphs;
    for (std::uint32_t code = ' '; code <= 'z'; ++code) glyphs.push_back({.a = 0, .b = 1, .c = 0, .x = code});
    for (const std::string font : {"f_1_0.bmp", "g_1_0.bmp"}) {
        add(font, pictureOf("_", 1));
        add(font + ".dat", writeGlyphTable(' ', 'z', 1, glyphs));
    }
    return package.package();
}

/// A point inside of an element that the mouse hits, `dx` pixels from its left edge; outside of the screen if no page
/// has the element.
[[nodiscard]] inline Position placeOf(const std::string& element, int dx = 1) {
    const std::string pages = kGamePages + kMenuPages;
    int x = -100, y = -100;
    const std::size_t at = pages.find(" " + element + " ");
    if (at != std::string::npos) std::sscanf(&pages[at], "%*s %d,%d", &x, &y);
    return {static_cast<std::int16_t>(x + dx), static_cast<std::int16_t>(y + 1)};
}

}  // namespace grub
