#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "level_walk.h"

namespace grub {
namespace {

/// Who stands is caught from the left; who goes to the right takes the key and wins.
const Drawing kHall{"d . . . . @ k E", "= = = = = = = ="};
const Drawing kLongHall{". @ . . . . . k", "= = = = = = = ="};

// Roads that several scenarios take, from Playing.
const std::string kToSaveMenu = "Escape GameMenu Down Enter SaveMenu ";
const std::string kToLoadMenu = "Escape GameMenu Down Down Enter LoadMenu ";
const std::string kSaveInSlot1 = kToSaveMenu + "Down Enter GameMenu Escape Playing ";
const std::string kLose = "EndScreen Enter Playing ";
const std::string kSaveTakeKeyAndLose = kSaveInSlot1 + "+Right 8 -Right " + kLose;

/// From "new0 Playing" on; see Walk.
const struct {
    const char* what;
    Drawing level;
    std::string script, story;
} kScenarios[] = {
    {"a win gives a life and waits for a key", kHall, "tell +Right EndScreen -Right 30 tell Enter Playing tell",
     "<1 3 1 0>[] Ended *winlevel EndScreen [won] EndFade Intro Playing <2 4 1 1050>[]"},
    {"a dog takes a life", kHall,
     "Ended 1 tell 12 tell EndScreen 1 tell 30 tell Enter 2 tell Intro tell 1 tell Playing tell",
     "Ended <1 3 1 0>[] <1 3 1 0>[stripes] *loose EndScreen [dog tiles-in] [dog] EndFade [dog tiles-out] Intro [] "
     "<1 2 1 0>[stripes] Playing <1 2 1 0>[]"},
    {"a lady takes a life",
     {"l . @ k", "# # # #"},
     "EndScreen 30 tell Enter Playing tell",
     "Ended *loose EndScreen [lady] EndFade Intro Playing <1 2 1 0>[]"},
    {"a rat takes a life",
     {"r . @ k", "# # # #"},
     "EndScreen 30 tell Enter Playing tell",
     "Ended *rat EndScreen [rat] EndFade Intro Playing <1 2 1 0>[]"},
    {"a hole takes a life",
     {"@ . k", "= = =", "# # #"},
     "X 20 +Right 20 -Right EndScreen 30 tell Enter Playing tell",
     "*break Ended *loose EndScreen [pit] EndFade Intro Playing <1 2 1 0>[]"},
    {"the last life", kHall,
     kLose + kLose + "clear EndScreen GameOver tell 3 tell 30 tell Enter run new0 EndScreen 1 tell",
     "Ended *loose EndScreen GameOver [dog tiles-in] [dog over@-300] [dog over] EndFade exit0 run=0/0/0 FirstLoad "
     "Intro "
     "Playing Ended *loose EndScreen [dog tiles-in]"},
    {"a key held at the end leaves the picture", kHall, "+Right EndScreen clear +Right 30 tell Enter Playing",
     "[won] EndFade Intro Playing"},
    {"another one takes it away at once", kHall, "+Right EndScreen clear 1 tell +C 1 tell Playing",
     "[won tiles-in] EndFade [won tiles-out] Intro Playing"},
    {"a slot keeps the life that the attempt has taken", kHall, kLose + "clear tell " + kSaveInSlot1,
     "<1 2 1 0>[] GameMenu *menumove *menuclick OpenSaveMenu SaveMenu *menumove *menuclick OpenGameMenu GameMenu "
     "Playing "
     "slot1=0/3/0"},
    {"a load goes back to the points and keys of the slot", kHall,
     kSaveTakeKeyAndLose + kToLoadMenu + "9 clear tell Down Enter Playing tell",
     "<1 2 0 50>[load load1 EMPTY Level 1 (time) EMPTY] *menumove *menuclick LoadSlot Intro Playing <1 3 1 0>[] "
     "slot1=0/3/0"},
    {"the mouse loads behind a shutter", kHall,
     kSaveTakeKeyAndLose + "clear tell buttonup_03 GameMenu buttonup_03 LoadMenu buttonup_02c Playing tell",
     "<1 2 0 50>[] GameMenu *menuclick OpenLoadMenu LoadMenu *menuclick Ended Intro Playing <1 3 1 0>[] slot1=0/3/0"},
    {"the mouse saves", kHall, "C GameMenu buttonup_02 SaveMenu clear buttonup_03w GameMenu 9 tell",
     "*menuclick OpenGameMenu GameMenu <1 3 1 0>[menu menu1] slot2=0/3/0"},
    {"an empty slot is not loaded", kHall, kToLoadMenu + "clear buttonup_02c 20 tell Enter GameMenu",
     "*menuclick <1 3 1 0>[load load2 EMPTY EMPTY EMPTY] OpenGameMenu GameMenu"},
    {"a dialog comes in 8 game frames and goes in 9", kHall, "C 5 tell 1 tell C 5 tell 1 tell 1 tell",
     "GameMenu <1 3 1 0>[menu@-50 menu1@-50] <1 3 1 0>[menu menu1] <1 3 1 0>[menu@-350 menu1@-350] <1 3 1 0>[] "
     "Playing <1 3 1 0>[]"},
    {"the game menu goes round", kHall, "C 9 Up tell Down tell Up Enter shell",
     "GameMenu *menumove <1 3 1 0>[menu menu4] *menumove <1 3 1 0>[menu menu1] *menumove *menuclick Quit Ended exit0"},
    {"the save menu has ends", kHall, kToSaveMenu + "clear 9 Up tell Down Down Down tell Escape GameMenu",
     "*menumove <1 3 1 0>[save save1 EMPTY EMPTY EMPTY] *menumove *menumove *menumove "
     "<1 3 1 0>[save save3 EMPTY EMPTY EMPTY] OpenGameMenu GameMenu"},
    {"a button acts where it went down", kHall,
     "+buttonup_01 GameMenu -buttonup_01 20 +buttonup_02 -buttonup_04 +buttonup_02 Down -buttonup_02 20 tell",
     "GameMenu *menuclick *menuclick *menumove <1 3 1 0>[menu menu3]"},
    {"and in the dialog where it went down", kHall,
     "C GameMenu +buttonup_02 Enter SaveMenu clear Down -buttonup_02w 20 tell",
     "*menumove <1 3 1 0>[save save2 EMPTY EMPTY EMPTY]"},
    {"the first world is won", kHall, "close new19 Playing clear +Right run on -Right Playing tell",
     "Ended *winlevel exit14 run=20/4/1050 FirstLoad Intro Playing <21 4 1 1050>[]"},
    {"the game is won", kHall, "close new49 Playing clear +Right run", "Ended *winlevel exit15 run=49/3/1050"},
    {"the shell loads", kHall, kSaveInSlot1 + "close clear load1 Playing tell close new0 Playing",
     "exit0 LoadSlot Intro Playing <1 3 1 0>[] Ended exit0 FirstLoad Intro Playing slot1=0/3/0"},
    {"closed as the level is won", kHall, "+Right 17 where close run", "6 Ended exit0 run=0/3/1050"},
    {"a key held through the menu goes on", kLongHall, "+Right +buttonup_01 GameMenu C Playing where 20 where",
     "GameMenu Playing 1 3"},
    {"a key released in the menu does not", kLongHall, "+Right +buttonup_01 GameMenu -Right C Playing 20 where",
     "GameMenu Playing 1"},
    {"the key that closed the menu repeats", kLongHall, "C GameMenu +Enter Playing 20 where +Enter 20 where",
     "GameMenu *menuclick Playing 1 *break 1"},
    {"a key pressed before play repeats", kLongHall, "close new0 Intro +Right Playing clear 20 where +Right 20 where",
     "1 3"},
};

/// Where the window is closed, and what follows until the shell.
const struct {
    std::string road, rest;
} kClosings[] = {
    {"load1 LoadSlot", "exit0"},
    {"new0 FirstLoad", "exit0"},
    {"new0 Intro", "Quit Ended exit0"},
    {"new0 Playing", "Ended exit0"},
    {"new0 Ended", "exit0"},
    {"new0 EndScreen", "exit0"},
    {"new0 EndScreen +Enter EndFade", "exit0"},
    {"new0 Playing " + kLose + kLose + "GameOver", "exit0"},
    {"new0 Playing Escape GameMenu", "Quit Ended exit0"},
    {"new0 Playing Escape GameMenu Up Enter Quit", "Ended exit0"},
    {"new0 Playing Escape GameMenu Down Enter OpenSaveMenu", "Quit Ended exit0"},
    {"new0 Playing " + kToSaveMenu, "Quit Ended exit0"},
    {"new0 Playing Escape GameMenu Up Up Enter OpenLoadMenu", "Quit Ended exit0"},
    {"new0 Playing " + kToLoadMenu, "Quit Ended exit0"},
    {"new0 Playing " + kToLoadMenu + "+Escape OpenGameMenu", "Quit Ended exit0"},
    {"new0 Playing " + kSaveInSlot1 + kToLoadMenu + "Down Enter LoadSlot", "Quit Ended exit0"},
};

TEST(LevelScene, TellsTheStoryOfEachScenario) {
    StateChanges changes;
    for (const auto& scenario : kScenarios) {
        SCOPED_TRACE(scenario.what);
        EXPECT_EQ(Walk(scenario.level, changes).play("new0 Playing clear " + scenario.script), scenario.story);
    }
    for (const auto& [road, rest] : kClosings) {
        SCOPED_TRACE(road);
        const std::string story = Walk(kHall, changes).play(road + " clear close new0 Playing tell");
        EXPECT_EQ(story.substr(0, story.find(" slot")), rest + " FirstLoad Intro Playing <1 3 1 0>[]");
    }
    for (const LevelStateRow& row : kLevelStates)
        EXPECT_EQ(namesOf(changes[row.state]), namesOf(row.leftTo)) << row.name;
}

TEST(LevelScene, ItsTableOfStatesIsThatOfTheCode) {
    std::ifstream readme(GRUB_SCENE_README);
    const std::regex row(R"(\| (\w+) \| `\w+` \| (.*) \|)");
    std::vector<std::string> written, coded;
    for (std::string line; std::getline(readme, line);)
        if (std::regex_match(line, row)) written.push_back(std::regex_replace(line, row, "$1: $2"));
    for (const LevelStateRow& state : kLevelStates)
        coded.push_back(std::string(state.name) + ": " + namesOf(state.leftTo));
    EXPECT_EQ(written, coded);
}

}  // namespace
}  // namespace grub
