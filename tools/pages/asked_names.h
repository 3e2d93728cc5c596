#pragma once

#include <array>
#include <string_view>

namespace grub {

// What the game asks of its interfaces by name. A name that is missing there would be an empty place on the screen.

/// An item that the game draws, or writes into.
struct AskedItem {
    std::string_view interface;
    std::string_view layout;
    std::string_view item;
    /// How many of its pictures, and of its texts, the game draws one by one; 0: it draws all that there are.
    std::size_t pictures = 0;
    std::size_t texts = 0;
};

/// An element that the mouse hits.
struct AskedTarget {
    std::string_view interface;
    std::string_view layout;
    std::string_view element;
    /// It is tested last, so others may lie on it.
    bool ground = false;
};

inline constexpr std::array kAskedItems{
    //        interface   layout            item             pictures texts
    AskedItem{"make_m64", "start_menu", "background"},
    AskedItem{"make_m64", "start_menu", "splash"},
    AskedItem{"make_m64", "start_menu", "game_logo"},
    AskedItem{"make_m64", "start_menu", "button_down", 6},
    AskedItem{"make_m64", "start_menu", "button_up", 6},
    AskedItem{"make_m64", "load_menu", "background"},
    AskedItem{"make_m64", "load_menu", "logo"},
    AskedItem{"make_m64", "load_menu", "splash"},
    AskedItem{"make_m64", "load_menu", "game_load"},
    AskedItem{"make_m64", "load_menu", "continue_down", 3},
    AskedItem{"make_m64", "load_menu", "game_levels", 0, 3},
    AskedItem{"make_m64", "load_menu", "game_time", 0, 3},
    AskedItem{"make_m64", "load_menu", "button_down", 6},
    AskedItem{"make_m64", "load_menu", "button_up", 6},
    AskedItem{"make_m64", "options_menu", "background"},
    AskedItem{"make_m64", "options_menu", "splash"},
    AskedItem{"make_m64", "options_menu", "game_options"},
    AskedItem{"make_m64", "options_menu", "trav_sound", 3},
    AskedItem{"make_m64", "options_menu", "trav_music", 3},
    AskedItem{"make_m64", "options_menu", "full_down"},
    AskedItem{"make_m64", "options_menu", "full_down_up"},
    AskedItem{"make_m64", "options_menu", "button_down", 6},
    AskedItem{"make_m64", "options_menu", "button_up", 6},
    AskedItem{"make_m64", "highscore_menu", "background"},
    AskedItem{"make_m64", "highscore_menu", "splash"},
    AskedItem{"make_m64", "highscore_menu", "game_score"},
    AskedItem{"make_m64", "highscore_menu", "in_splash"},
    AskedItem{"make_m64", "highscore_menu", "game_save"},
    AskedItem{"make_m64", "highscore_menu", "ok_down"},
    AskedItem{"make_m64", "highscore_menu", "ok_up"},
    AskedItem{"make_m64", "highscore_menu", "user_text", 0, 1},
    AskedItem{"make_m64", "highscore_menu", "button_down", 6},
    AskedItem{"make_m64", "highscore_menu", "button_up", 6},
    AskedItem{"make_m64", "exit", "background"},
    AskedItem{"make_m64", "exit", "splash"},
    AskedItem{"make_m64", "exit", "logo_exit"},
    AskedItem{"make_m64", "exit", "logo"},
    AskedItem{"make_m64", "exit", "a_button_stat"},
    AskedItem{"make_m64", "exit", "a_button_down", 2},
    AskedItem{"make_m64", "exit", "button_down", 6},
    AskedItem{"make_m64", "exit", "button_up", 6},
    AskedItem{"make_m64", "help_menu", "background"},
    AskedItem{"make_m64", "help_menu", "logo"},
    AskedItem{"make_m64", "help_menu", "splash"},
    AskedItem{"make_m64", "help_menu", "arrow_stat", 2},
    AskedItem{"make_m64", "help_menu", "arrow_down", 2},
    AskedItem{"make_m64", "help_menu", "button_down", 6},
    AskedItem{"make_m64", "help_menu", "button_up", 6},
    AskedItem{"make_m64", "a_exit", "background"},
    AskedItem{"make_m64", "a_exit", "logo"},
    AskedItem{"make_m64", "a_exit", "splash"},
    AskedItem{"make_m64", "a_exit", "text_info"},
    AskedItem{"make_m64", "a_exit", "a_button_stat"},
    AskedItem{"make_m64", "a_exit", "a_button_down", 3},
    AskedItem{"make_z64", "zast", "fon"},
    AskedItem{"make_z64", "komiks1", "fon"},
    AskedItem{"make_z64", "komiks2", "fon"},
    AskedItem{"make_z64", "komiks3", "fon"},
    AskedItem{"make_z64", "komiksfin", "fon"},
    AskedItem{"make_z64", "in_gamemenu", "in_splash"},
    AskedItem{"make_z64", "in_gamemenu", "button_down", 4},
    AskedItem{"make_z64", "in_writemenu", "splash"},
    AskedItem{"make_z64", "in_writemenu", "game_write"},
    AskedItem{"make_z64", "in_writemenu", "write_down", 3},
    AskedItem{"make_z64", "in_writemenu", "game_levels", 0, 3},
    AskedItem{"make_z64", "in_writemenu", "game_time", 0, 3},
    AskedItem{"make_z64", "in_loadmenu", "splash"},
    AskedItem{"make_z64", "in_loadmenu", "game_load"},
    AskedItem{"make_z64", "in_loadmenu", "continue_down", 3},
    AskedItem{"make_z64", "in_loadmenu", "game_levels", 0, 3},
    AskedItem{"make_z64", "in_loadmenu", "game_time", 0, 3},
    AskedItem{"make_z64", "loss_polkan", "screen"},
    AskedItem{"make_z64", "loss_polkan", "over"},
    AskedItem{"make_z64", "loss_lady", "screen"},
    AskedItem{"make_z64", "loss_lady", "over"},
    AskedItem{"make_z64", "loss_rat", "screen"},
    AskedItem{"make_z64", "loss_rat", "over"},
    AskedItem{"make_z64", "loss_pit", "screen"},
    AskedItem{"make_z64", "loss_pit", "over"},
    AskedItem{"make_z64", "win", "loss"},
};

/// The sheets of the help are the items help_00, help_01 and so on of "help_menu": at least so many.
inline constexpr std::size_t kLeastHelpSheets = 12;

/// The boards of the column are targets on every page that has one: all layouts of the menus but the quick way out.
inline constexpr std::array<std::string_view, 6> kColumnTargets{"start_down", "load_down", "options_down",
                                                                "score_down", "help_down", "exit_down"};

inline constexpr std::array kAskedTargets{
    //          interface   layout            element            ground
    AskedTarget{"make_m64", "start_menu", "start_logo"},     AskedTarget{"make_m64", "load_menu", "buttonup_01c"},
    AskedTarget{"make_m64", "load_menu", "buttonup_02c"},    AskedTarget{"make_m64", "load_menu", "buttonup_03c"},
    AskedTarget{"make_m64", "options_menu", "trav1n"},       AskedTarget{"make_m64", "options_menu", "trav1a"},
    AskedTarget{"make_m64", "options_menu", "full_stat"},    AskedTarget{"make_m64", "highscore_menu", "buttonup_01"},
    AskedTarget{"make_m64", "exit", "start_logo"},           AskedTarget{"make_m64", "help_menu", "abuttonstat_01u"},
    AskedTarget{"make_m64", "help_menu", "abuttonstat_02u"}, AskedTarget{"make_m64", "help_menu", "start_logo", true},
    AskedTarget{"make_z64", "in_gamemenu", "buttonup_01"},   AskedTarget{"make_z64", "in_gamemenu", "buttonup_02"},
    AskedTarget{"make_z64", "in_gamemenu", "buttonup_03"},   AskedTarget{"make_z64", "in_gamemenu", "buttonup_04"},
    AskedTarget{"make_z64", "in_writemenu", "buttonup_01w"}, AskedTarget{"make_z64", "in_writemenu", "buttonup_02w"},
    AskedTarget{"make_z64", "in_writemenu", "buttonup_03w"}, AskedTarget{"make_z64", "in_loadmenu", "buttonup_01c"},
    AskedTarget{"make_z64", "in_loadmenu", "buttonup_02c"},  AskedTarget{"make_z64", "in_loadmenu", "buttonup_03c"},
};

/// The fonts of the menus by number: the code writes the best results with number 1.
inline constexpr std::array<std::string_view, 3> kMenuFonts{"body_24_0", "small_18_0", "name_34_48"};

}  // namespace grub
