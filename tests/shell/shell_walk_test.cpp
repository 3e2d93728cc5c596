#include <gtest/gtest.h>

#include <array>
#include <string>

#include "shell_walk.h"

namespace grub {
namespace {

/// Who stands is caught from the left; who goes to the right takes the key and wins.
const Drawing kHall{"d . . . . @ k E", "= = = = = = = ="};

// Roads that several walks take, from the start of the program: to its menu; into the game of slot 0; into such a game
// and out of it, without a life, to the page that asks for a name.
const std::string kOpen = "Enter Start 1 clear ";
const std::string kLoad = kOpen + "Down Load Enter Playing clear ";
const std::string kLose = "slot0=3/1/150 " + kLoad + "GameOver +Enter NameEntry clear -Enter ";

/// See ShellWalk.
const struct {
    const char* what;
    std::string script, story;
} kWalks[] = {
    {"the opening stands for a second", "tell 3 tell 1 tell OpeningEnd ms 1 tell Start ms 1 tell",
     "Opening [] [opening tiles-in] [opening] +menu OpeningEnd 1000 [opening tiles-out] Start 1040 [splash title "
     "=start]"},
    {"or until a key is pressed", "20 Space OpeningEnd ms", "Opening +menu OpeningEnd 210"},
    {"closed at once", "close end", "Opening end"},
    {"closed in the opening", "20 close end", "Opening +menu -menu end"},
    {"closed as it goes", "Enter OpeningEnd close end", "Opening +menu OpeningEnd -menu end"},
    {"all pages by keyboard",
     kOpen + "tell Up Down Load tell Down Options tell Down Scores tell Down Help tell Down Exit tell "
             "Down Up Help Up Scores Up Options Up Load Up Start",
     "[splash title =start] *menulist1 *menulist2 Load [logo splash load load1 =load EMPTY EMPTY EMPTY] *menulist1 "
     "*menulist2 Options [splash options SOUND7 music3 box =options] *menulist1 *menulist2 Scores [splash scores "
     "=scores] *menulist1 *menulist2 Help [logo splash sheet1 right =help] *menulist1 *menulist2 Exit [splash exit "
     "logo =exit answers QUIETLY] "
     "*menulist1 *menulist2 Help *menulist1 *menulist2 Scores *menulist1 *menulist2 Options *menulist1 *menulist2 Load "
     "*menulist1 *menulist2 Start"},
    {"all pages by mouse",
     kOpen + "load_down Load options_down Options score_down Scores help_down Help exit_down Exit start_down Start",
     "*menuclick *menulist1 *menulist2 Load *menuclick *menulist1 *menulist2 Options *menuclick *menulist1 *menulist2 "
     "Scores *menuclick *menulist1 *menulist2 Help *menuclick *menulist1 *menulist2 Exit *menuclick *menulist1 "
     "*menulist2 Start"},
    {"a page goes in 19 frames and comes in 19", kOpen + "Down 17 tell frames 1 tell 18 tell 1 tell second",
     "*menulist1 [splash>425 title>425 -load] 18 *menulist2 Load [splash>450 title>450 -load] [logo>25 splash>25 "
     "load>25 load1>25 -load EMPTY EMPTY EMPTY] [logo splash load load1 =load EMPTY EMPTY EMPTY] 0"},
    {"keys move on while a page goes", kOpen + "+Down +Down +Down Scores frames",
     "*menulist1 *menulist1 *menulist1 *menulist2 Scores 38"},
    {"the mouse does not hurry it", kOpen + "Down burst frames tell", "*menulist1 11 [splash>250 title>250 -load]"},
    {"a page that stands still is drawn for a message only", kOpen + "second +X frames second", "0 1 0"},
    {"volumes by keys",
     kOpen + "options_down Options clear Right Right tell volumes Tab Left volumes Left Left Left tell volumes Up Load",
     "[splash options SOUND8 music3 box =options] 106/71 *menumove 106/64 [splash options sound8 MUSIC0 box =options] "
     "106/0 *menulist1 *menulist2 Load"},
    {"volumes by mouse",
     kOpen + "options_down Options clear trav1n:198 volumes trav1n:199 volumes trav1n:227 tell volumes trav1a:24 tell "
             "volumes",
     "*menuclick 99/71 *menuclick 106/71 *menuclick [splash options SOUND8 music3 box =options] 106/71 *menuclick "
     "[splash options sound8 MUSIC0 box =options] 106/0"},
    {"a slider follows the mouse while it is held",
     kOpen + "options_down Options clear +trav1n >trav1n:120 volumes >trav1a:120 >trav1n:224 -trav1a:120 >trav1n:60 "
             "volumes",
     "*menuclick 78/71 106/71"},
    {"the box for full screen",
     kOpen + "options_down Options clear full_stat tell Right tell Left Enter tell Tab tell Tab Tab Space tell",
     "*menuclick [splash options sound7 music3 TICK =options] [splash options sound7 music3 BOX =options] *menuclick "
     "[splash options sound7 music3 BOX =options] *menumove [splash options SOUND7 music3 box =options] *menumove "
     "*menumove *menuclick [splash options sound7 music3 TICK =options]"},
    {"settings are kept",
     kOpen + "options_down Options trav1n:224 Tab Left full_stat close end clear disk restart Enter Start volumes "
             "options_down Options tell",
     "204 full Opening +menu OpeningEnd Start 106/64 *menuclick *menulist1 *menulist2 Options [splash options SOUND8 "
     "music2 box =options]"},
    {"after a game the first slider is chosen",
     "slot0=3/1/0 " + kOpen +
         "options_down Options Tab Left Tab Up Load Enter Playing GameOver +Enter Start clear "
         "options_down Options tell",
     "*menuclick *menulist1 *menulist2 Options [splash options SOUND7 music2 box =options]"},
    {"sheets of the help by keys",
     kOpen + "help_down Help clear +Right tell -Right tell +PageDown tell -PageDown +Left tell -Left PageUp PageUp "
             "Right tell Space Enter PageUp tell",
     "*menuclick [logo splash sheet2 left RIGHT =help] [logo splash sheet2 left right =help] *menuclick [logo splash "
     "sheet3 left =help] *menuclick [logo splash sheet2 LEFT right =help] *menuclick *menuclick *menuclick [logo "
     "splash sheet2 left right =help] *menuclick *menuclick *menuclick [logo splash sheet2 left right =help]"},
    {"sheets of the help by mouse",
     kOpen + "help_down Help clear +abuttonstat_02u tell -abuttonstat_02u start_logo tell +abuttonstat_01u:100 tell",
     "*menuclick [logo splash sheet2 left RIGHT =help] *menuclick [logo splash sheet3 left =help] *menuclick [logo "
     "splash sheet2 LEFT right =help]"},
    {"a slot by keys",
     "slot1=19/3/500 " + kOpen +
         "Down Load Left Enter 50 clear tell Right Right Right tell Enter 50 Left Enter Playing tell",
     "[logo splash load load1 =load EMPTY Level 20 (time) EMPTY] [logo splash load load3 =load EMPTY Level 20 (time) "
     "EMPTY] -menu Playing <20 3 1 500>[]"},
    {"a slot by mouse",
     "slot1=19/3/500 " + kOpen + "Down Load clear buttonup_01c 50 tell +buttonup_02c tell -buttonup_02c Playing tell",
     "*menuclick [logo splash load load1 =load EMPTY Level 20 (time) EMPTY] *menuclick [logo splash load load2 =load "
     "EMPTY Level 20 (time) EMPTY] -menu Playing <20 3 1 500>[]"},
    {"the quick exit, from where a page goes",
     kOpen + "+Down +Down A tell exit_down start_logo Left Right Right Right tell Enter 1 tell Options",
     "*menulist1 *menulist1 QuickExit [night logo splash leave? answers LEAVE] [night logo splash leave? answers DIG] "
     "*menulist2 Options [splash>450 options>450 SOUND7>450 music3>450 box>450 -options]"},
    {"a new game",
     kOpen + "Enter 1 tell 3 tell second Enter 1 tell SecondComic 1 tell 4 second Enter 1 tell Playing tell",
     "*menuclick FirstComic [comic1 tiles-in] [comic1] 0 [comic1 tiles-out] SecondComic [comic2 tiles-in] 0 [comic2 "
     "tiles-out] -menu Playing <1 3 1 0>[]"},
    {"a held key leads through the comics",
     kOpen + "start_down +Enter +Enter +Enter +Enter +Enter +Enter +Enter +Enter +Enter Playing",
     "*menuclick FirstComic SecondComic -menu Playing"},
    {"a new game by mouse", kOpen + "start_logo start_logo SecondComic start_down Playing",
     "*menuclick FirstComic SecondComic -menu Playing"},
    {"after the first world", "slot0=19/3/500 " + kLoad + "+Right MiddleComic 10 tell second Enter Playing tell",
     "+menu MiddleComic [comic3] 0 -menu Playing <21 4 1 1550>[]"},
    {"after the last level", "slot0=49/3/500 " + kLoad + "+Right FinalComic 10 tell second Enter Start 1 tell",
     "+menu FinalComic [comic4] 0 Start [splash title =start]"},
    {"a name", kLose + "tell \"ZX9YQW tell \"Z Scores tell close end disk restart Enter Start score_down Scores tell",
     "[wall name =scores       ] *menuclick *menulist1 [wall name carved =scores ZX9YQW] *menulist2 Scores [splash "
     "scores =scores ZX9YQW  4    150] -menu end 204 Opening +menu OpeningEnd Start *menuclick *menulist1 *menulist2 "
     "Scores [splash scores =scores ZX9YQW  4    150]"},
    {"no name", kLose + "Enter Enter Scores tell",
     "*menuclick *menulist1 *menulist2 Scores [splash scores =scores         4    150]"},
    {"a name by mouse", kLose + "\"Z +buttonup_01 tell -buttonup_01 buttonup_01 \"Z tell Scores tell",
     "*menuclick [wall name OK =scores Z     ] *menulist1 *menuclick [wall>50 name>50 carved>50 =scores Z     ] "
     "*menulist2 Scores [splash scores =scores Z       4    150]"},
    {"the key that ended the game is held",
     "slot0=3/1/150 " + kLoad +
         "GameOver +Right NameEntry clear +Right +Right +Right +Right +Right +Right -Right \"Z tell",
     "[wall name =scores Z     ]"},
    {"while a name is asked for, the column is dead", kLose + "start_down load_down exit_down 50 tell",
     "[wall name =scores       ]"},
    {"no points", "slot0=3/1/0 " + kLoad + "GameOver +Enter Start", "+menu Start"},
    {"as many points as the lowest", "full=500 slot0=3/1/500 " + kLoad + "GameOver +Enter Start", "+menu Start"},
    {"one more", "full=500 slot0=3/1/501 " + kLoad + "GameOver +Enter NameEntry", "+menu NameEntry"},
    {"closed with points", "slot0=3/1/150 " + kLoad + "GameOver close 1 tell NameEntry close end disk",
     "+menu NameEntry [wall>425 name>425 =scores       ] -menu end 204"},
    {"a slot acts where the mouse went down",
     "slot0=3/1/150 " + kOpen +
         "Down Load clear +start_logo -buttonup_01c +buttonup_02c -buttonup_01c +buttonup_01c -buttonup_02c 50 tell",
     "*menuclick *menuclick *menuclick [logo splash load load1 =load Level 4 (time) EMPTY EMPTY]"},
    {"so does the exit",
     kOpen + "exit_down Exit clear +buttonup_01c -start_logo +start_logo -exit_down +exit_down -start_logo 50 tell",
     "*menuclick *menuclick [splash exit logo =exit answers QUIETLY]"},
    {"so does the name's button", kLose + "+start_logo -buttonup_01 +buttonup_01 -start_logo 50 tell",
     "*menuclick [wall name =scores       ]"},
};

/// Where and how the program is left, from its menu on.
constexpr std::array kWaysOut{"close",
                              "A Enter",
                              "A Right A",
                              "help_down Help A close",
                              "exit_down Exit Right Enter",
                              "exit_down Exit A",
                              "exit_down Exit start_logo",
                              "exit_down Exit exit_down",
                              "Down 5 close",
                              "Enter 1 close",
                              "Enter Enter SecondComic close",
                              "slot0=19/3/0 Down Load Enter Playing close",
                              "slot0=19/3/0 Down Load Enter Playing Escape GameMenu close",
                              "slot0=19/3/0 Down Load Enter EndScreen close",
                              "slot0=19/3/0 Down Load Enter Playing +Right MiddleComic close",
                              "close end slow restart Enter Start close",
                              "close end slow restart Enter Start Enter Enter SecondComic Enter 50 close"};

TEST(Program, TellsTheStoryOfEachWalk) {
    for (const auto& [what, script, story] : kWalks) {
        SCOPED_TRACE(what);
        EXPECT_EQ(ShellWalk(kHall).play(script), story);
    }
}

// The menu must have done its last work.
TEST(Program, EndsWithinASecondFromWhereverItIsLeft) {
    for (const std::string way : kWaysOut) {
        const std::string story = ShellWalk(kHall).play(kOpen + way + " end");
        EXPECT_TRUE(story.ends_with("-menu end")) << way << ": " << story;
    }
}

}  // namespace
}  // namespace grub
