#include "loading_list.h"

#include <array>
#include <iterator>
#include <utility>

#include "animation_id.h"

namespace grub {
namespace {

using namespace animation;

constexpr Colour kSlate{67, 99, 99};

constexpr LoadEntry strip(int id, std::string_view stem, std::uint16_t frameHeight, Colour key,
                          TextureTransform transform = TextureTransform::Identity) {
    return {id, stem, LoadEntry::Kind::Strip, frameHeight, transform, kNoSpriteNumber, key};
}

constexpr LoadEntry mirrored(int id, std::string_view stem, std::uint16_t frameHeight, Colour key) {
    return strip(id, stem, frameHeight, key, TextureTransform::FlipHorizontal);
}

constexpr LoadEntry block(int id, std::string_view stem, int spriteNumber, Colour key) {
    return {id, stem, LoadEntry::Kind::Block, 64, TextureTransform::Identity, spriteNumber, key};
}

// A plain array: clang does not deduce a std::array of more than 256 entries.
// clang-format off
constexpr LoadEntry kEntries[]{
    //  id, file stem, frame height (strips) or sprite number (blocks), colour key
    // list 0, step 0
    block(kPlainWall, "steny\\modul", 36, kBlue),
    block(kPlainSolid, "poly\\modul_pol04", 84, kBlue),
    block(kPlainFloor, "steny\\modul_pol_11a", 83, kBlue),
    block(kPlainPipe, "trubi\\mod_trub04", 56, kBlue),
    block(kPlainLadder, "lesenki\\modul_lestn", 50, kBlue),
    strip(kScoreDigits, "font_for_score", 20, kBrown),
    block(7, "steny\\modul01", 35, kBlue),
    block(8, "steny\\modul02", 37, kBlue),
    block(9, "steny\\modul2", 39, kBlue),
    block(10, "steny\\modul9", 41, kBlue),
    block(11, "steny\\modul03", 40, kBlue),
    block(12, "steny\\modul6", 42, kBlue),
    block(13, "steny\\modul_lampa1", 43, kBlue),
    block(14, "steny\\modul6", 44, kBlue),
    block(15, "steny\\modul8", 46, kBlue),
    block(16, "steny\\modul03", 47, kBlue),
    block(17, "poly\\modul_pol", 51, kBlue),
    block(18, "trubi\\mod_trub1", 53, kBlue),
    block(19, "trubi\\mod_trub2", 54, kBlue),
    block(20, "trubi\\mod_trub3", 55, kBlue),
    block(21, "trubi\\mod_trub5", 57, kBlue),
    block(22, "trubi\\mod_trub8", 58, kBlue),
    block(23, "trubi\\mod_trub10", 59, kBlue),
    block(24, "trubi\\mod_trub11", 60, kBlue),
    block(25, "trubi\\mod_trub12", 61, kBlue),
    block(26, "trubi\\mod_trub13", 62, kBlue),
    block(27, "trubi\\mod_trub14", 63, kBlue),
    block(28, "trubi\\tr_ugol2", 64, kBlue),
    block(29, "trubi\\tr_unit2", 65, kBlue),
    block(30, "steny\\modul_lampa1", 66, kBlue),
    block(31, "steny\\modul_lampa2", 67, kBlue),
    block(32, "trubi\\tr_lest1", 68, kBlue),
    block(33, "dveri\\modul_dver_1a", 69, kBlue),
    block(34, "dveri\\modul_dver_1b", 70, kBlue),
    block(35, "dveri\\modul_dver_1c", 71, kBlue),
    block(36, "dveri\\modul_dver_1d", 72, kBlue),
    block(37, "fon\\modul02", 73, kBlue),
    block(38, "fon\\modul2", 74, kBlue),
    block(39, "fon\\modul03", 75, kBlue),
    block(40, "poly\\polkam", 76, kBlue),
    block(41, "poly\\modul_pol01", 81, kBlue),
    // list 0, step 1
    block(42, "poly\\modul_pol02", 82, kBlue),
    block(75, "poly\\modul_pol06", 86, kBlue),
    block(43, "dveri\\dverfin1", 110, kBlue),
    block(44, "dveri\\dverfin2", 111, kBlue),
    block(45, "dveri\\dverfin3", 112, kBlue),
    block(46, "dveri\\dverfin4", 113, kBlue),
    block(47, "trubi\\tr_styk1", 130, kBlue),
    block(48, "trubi\\tr_styk3", 131, kBlue),
    block(49, "trubi\\tr_kray1", 132, kBlue),
    block(50, "trubi\\tr_kray2", 133, kBlue),
    block(51, "trubi\\tr_kray3", 134, kBlue),
    block(52, "trubi\\tr_kray4", 135, kBlue),
    block(53, "trubi\\tr_kray5", 136, kBlue),
    block(54, "trubi\\tr_kray6", 137, kBlue),
    block(55, "trubi\\kran1", 138, kBlue),
    block(56, "trubi\\kran2", 139, kBlue),
    block(57, "poly\\truba_za5", 143, kBlue),
    block(58, "poly\\truba_za6", 144, kBlue),
    block(59, "trubi\\ugol1", 147, kBlue),
    block(60, "trubi\\ugol2", 148, kBlue),
    block(61, "poly\\truba_za3", 149, kBlue),
    block(62, "poly\\truba_za1", 151, kBlue),
    block(63, "poly\\truba_za2", 152, kBlue),
    block(64, "poly\\tr_pol1", 153, kBlue),
    block(65, "poly\\tr_pol2", 154, kBlue),
    block(66, "poly\\tr_pol3", 155, kBlue),
    block(67, "poly\\tr_pol4", 156, kBlue),
    block(68, "poly\\pol_kray1", 157, kBlue),
    block(69, "poly\\pol_kray2", 158, kBlue),
    block(70, "poly\\pol_kray3", 159, kBlue),
    block(71, "poly\\pol_kray4", 160, kBlue),
    block(72, "poly\\pol_kray5", 161, kBlue),
    block(73, "poly\\pol_kray6", 162, kBlue),
    block(74, "dveri\\dverfin2-red", 165, kBlue),
    strip(kHeroWalkLeft, "grub\\ani_01", 64, kBrown),
    mirrored(kHeroWalkRight, "grub\\ani_01", 64, kBrown),
    strip(kHeroHangLeft, "grub\\ani_04", 64, kBrown),
    mirrored(kHeroHangRight, "grub\\ani_04", 64, kBrown),
    strip(kHeroClimb, "grub\\ani_02", 64, kBrown),
    strip(kHeroDigLeft, "grub\\ani_05", 64, kBrown),
    mirrored(kHeroDigRight, "grub\\ani_05", 64, kBrown),
    // list 0, step 2
    strip(kHeroFront, "grub\\ani_06", 64, kBrown),
    strip(kHeroFrontBlink, "grub\\ani_07", 64, kBrown),
    strip(kHeroFall, "grub\\ani_03", 64, kBrown),
    block(82, "poly\\lom2", 163, kBlue),
    block(83, "poly\\lom1", 88, kBlue),
    block(84, "poly\\vosstfull", 90, kBlue),
    block(85, "poly\\vossthalf", 89, kBlue),
    block(86, "poly\\vosstfull", 164, kBlue),
    block(87, "poly\\vossthalf", 142, kBlue),
    block(88, "poly\\lom3", 87, kBlue),
    block(89, "poly\\lom4", 141, kBlue),
    strip(kHangingKey, "key_h", 64, kBrown),
    strip(kLyingKey, "key", 64, kBrown),
    block(99, "dveri\\door_a", 169, kBlue),
    block(100, "dveri\\door_b", 168, kBlue),
    block(101, "dveri\\door_c", 167, kBlue),
    block(102, "dveri\\door_d", 166, kBlue),
    strip(kRatWalkLeft, "rat\\ani_01", 64, kBrown),
    mirrored(kRatWalkRight, "rat\\ani_01", 64, kBrown),
    strip(kRatUpLeft, "rat\\ani_up", 64, kBrown),
    mirrored(kRatUpRight, "rat\\ani_up", 64, kBrown),
    strip(kRatDownLeft, "rat\\ani_down", 64, kBrown),
    mirrored(kRatDownRight, "rat\\ani_down", 64, kBrown),
    strip(116, "c_small", 10, kBlue),
    strip(kPanelDigits, "c_imp", 14, kSlate),
    strip(kLongLamp, "lampalong", 64, kBlue),
    strip(kShortLamp, "lampashort", 64, kBlue),
    // list 0, step 3
    strip(kTorchLeft, "kam_left", 64, kBrown),
    mirrored(kTorchRight, "kam_right", 64, kBrown),
    strip(kDrops, "kapli", 64, kBlue),
    strip(kHeart, "bonuses\\animation_bonus_04", 64, kBrown),
    strip(130, "bonuses\\modul_stol_pust", 64, kBlue),
    strip(kShieldBonus, "bonuses\\animation_bonus_06", 64, kBrown),
    strip(134, "gor", 16, kBlue),
    strip(135, "vert", 240, kBlue),
    strip(kShieldWalkLeft, "led\\shield_01", 64, kBrown),
    mirrored(kShieldWalkRight, "led\\shield_01", 64, kBrown),
    strip(kShieldClimb, "led\\shield_02", 64, kBrown),
    strip(kShieldHangLeft, "led\\shield_04", 64, kBrown),
    mirrored(kShieldHangRight, "led\\shield_04", 64, kBrown),
    strip(kShieldDigLeft, "led\\shield_05", 64, kBrown),
    mirrored(kShieldDigRight, "led\\shield_05", 64, kBrown),
    strip(kShieldStandLeft, "led\\shield_08", 64, kBrown),
    mirrored(kShieldStandRight, "led\\shield_08", 64, kBrown),
    strip(kShieldFront, "led\\shield_06", 64, kBrown),
    strip(kShieldFall, "led\\shield_03", 64, kBrown),
    strip(kShieldFrontBlink, "led\\shield_07", 64, kBrown),
    strip(kBomb, "bonuses\\animation_bonus_02", 64, kBrown),
    strip(kInvisibility, "bonuses\\animation_bonus_03", 64, kBrown),
    strip(kAnchor, "bonuses\\animation_bonus_05", 64, kBrown),
    // list 0, step 4
    strip(kSkull, "bonuses\\animation_bonus_01", 64, kBrown),
    block(164, "steny\\modul5", 38, kBlue),
    block(165, "steny\\modul_lampa2", 45, kBlue),
    block(166, "fon\\modul9", 109, kBlue),
    block(167, "fon\\modul3", 114, kBlue),
    block(168, "fon\\modul4", 115, kBlue),
    block(169, "fon\\modul6", 117, kBlue),
    block(170, "fon\\modul7", 118, kBlue),
    block(171, "fon\\modul8", 119, kBlue),
    strip(172, "polkan\\drop_l", 64, kBlue),
    strip(173, "polkan\\drop_r", 64, kBlue),
    block(174, "lampalong", 104, kBlue),
    block(175, "fon\\lampa", 105, kBrown),
    block(176, "fon\\window", 106, kBrown),
    block(177, "fon\\perila", 107, kBrown),
    block(178, "lesenki\\lest_j", 108, kBrown),
    block(179, "poly\\pol_jel", 310, kBrown),
    block(180, "poly\\kam_proz", 311, kBrown),
    block(181, "sten_jel\\fon_jel", 307, kBlue),
    block(182, "sten_jel\\cep_jel", 308, kBlue),
    block(183, "sten_jel\\pol_lamp_jel", 309, kBlue),
    block(184, "sten_jel\\trub_cep", 225, kBlue),
    block(185, "fon\\bochka", 226, kBlue),
    block(186, "fon\\dpip", 227, kBlue),
    block(187, "fon\\dpip0", 228, kBlue),
    block(188, "fon\\dpip1", 170, kBlue),
    block(189, "fon\\dpipsk", 171, kBlue),
    block(190, "fon\\fakel", 172, kBlue),
    block(191, "fon\\kosti", 173, kBlue),
    block(192, "fon\\kreslo", 174, kBlue),
    // list 0, step 5
    block(211, "fon\\pol_lam", 193, kBlue),
    block(212, "fon\\prov1", 194, kBlue),
    block(213, "fon\\prov2", 195, kBlue),
    block(214, "fon\\prov3", 196, kBlue),
    block(215, "fon\\prov4", 197, kBlue),
    block(216, "fon\\prov5", 198, kBlue),
    block(217, "fon\\prov6", 199, kBlue),
    block(218, "fon\\prov7", 200, kBlue),
    block(219, "fon\\prov8", 201, kBlue),
    block(220, "fon\\ruki", 202, kBlue),
    block(221, "fon\\skull", 203, kBlue),
    block(225, "dveri\\reshet", 207, kBlue),
    block(226, "lesenki\\lest_n", 208, kBlue),
    block(227, "lesenki\\lest_v", 209, kBlue),
    block(228, "poly\\paut", 210, kBlue),
    block(229, "poly\\paut1", 211, kBlue),
    block(234, "fon\\k11", 216, kBlue),
    block(235, "fon\\k12", 217, kBlue),
    block(236, "fon\\k21", 218, kBlue),
    block(237, "fon\\k22", 219, kBlue),
    block(238, "fon\\kam1", 220, kBlue),
    block(239, "fon\\kam2", 221, kBlue),
    block(240, "fon\\kam3", 222, kBlue),
    block(241, "fon\\kam4", 223, kBlue),
    // list 0, step 6
    block(242, "fon\\lamp", 224, kBlue),
    block(243, "trubi\\mod_trub11_l", 229, kBlue),
    block(245, "lesenki\\l_proz", 52, kBrown),
    block(256, "poly\\modul_pol03", 230, kBlue),
    block(272, "trubproz\\kran1", 237, kBrown),
    block(273, "trubproz\\kran2", 238, kBrown),
    block(274, "trubproz\\kran3", 239, kBrown),
    block(275, "trubproz\\tr_lest", 240, kBrown),
    block(276, "trubproz\\tr_ug1", 241, kBrown),
    block(277, "trubproz\\tr_ug2", 242, kBrown),
    block(278, "trubproz\\tr_z", 243, kBrown),
    block(279, "trubproz\\trub4", 244, kBrown),
    block(280, "trubproz\\trub5", 245, kBrown),
    block(281, "trubproz\\trub6", 246, kBrown),
    // list 0, step 7
    block(282, "trubproz\\trub8", 247, kBrown),
    block(283, "trubproz\\trub_stuk", 248, kBrown),
    block(284, "trubproz\\trub_stuk1", 249, kBrown),
    block(285, "trubproz\\trub_stuk2", 250, kBrown),
    block(286, "trubproz\\trub_zag1", 251, kBrown),
    block(287, "trubproz\\trub_zag2", 252, kBrown),
    block(288, "trubproz\\ugol1", 253, kBrown),
    block(289, "trubproz\\ugol2", 254, kBrown),
    block(290, "trubproz\\un1", 255, kBrown),
    block(291, "trubproz\\un2", 256, kBrown),
    block(292, "trubproz\\ventil1", 257, kBrown),
    block(293, "trubproz\\ventil2", 258, kBrown),
    block(294, "provoda\\prov1", 259, kBrown),
    block(295, "provoda\\prov2", 260, kBrown),
    block(296, "provoda\\prov3", 261, kBrown),
    block(297, "provoda\\prov4", 262, kBrown),
    block(298, "provoda\\prov5", 263, kBrown),
    block(299, "provoda\\prov6", 264, kBrown),
    block(300, "provoda\\prov7", 265, kBrown),
    block(301, "provoda\\prov8", 266, kBrown),
    block(302, "provoda\\prov9", 267, kBrown),
    block(303, "provoda\\prov10", 268, kBrown),
    block(304, "provoda\\prov11", 269, kBrown),
    block(305, "provoda\\prov12", 270, kBrown),
    block(306, "provoda\\prov13", 271, kBrown),
    block(307, "provoda\\prov14", 272, kBrown),
    block(308, "provoda\\prov15", 273, kBrown),
    block(309, "provoda\\prov16", 274, kBrown),
    block(310, "provoda\\prov17", 275, kBrown),
    block(311, "provoda\\prov18", 276, kBrown),
    block(318, "fon\\lampa1_proz", 283, kBrown),
    block(319, "fon\\a2\\p11", 284, kBrown),
    block(320, "fon\\a2\\p12", 285, kBrown),
    block(321, "fon\\a2\\p21", 286, kBrown),
    block(322, "fon\\a2\\p22", 287, kBrown),
    block(323, "fon\\a2\\p23", 288, kBrown),
    block(324, "fon\\a2\\p31", 289, kBrown),
    block(325, "fon\\a2\\p33", 290, kBrown),
    block(326, "fon\\sh1_proz", 291, kBrown),
    block(327, "fon\\sh2_proz", 292, kBrown),
    block(328, "fon\\sh3_proz", 293, kBrown),
    strip(kHeroStandLeft, "grub\\ani_08", 64, kBrown),
    mirrored(kHeroStandRight, "grub\\ani_08", 64, kBrown),
    // list 1, step 0
    strip(kDogWalkLeft, "polkan\\ani_01", 64, kBrown),
    mirrored(kDogWalkRight, "polkan\\ani_01", 64, kBrown),
    strip(kDogHangLeft, "polkan\\ani_03", 64, kBrown),
    mirrored(kDogHangRight, "polkan\\ani_03", 64, kBrown),
    strip(kDogClimb, "polkan\\ani_02", 64, kBrown),
    strip(kDogTrapped, "polkan\\ani_05", 64, kBrown),
    strip(kDogStill, "polkan\\ani_04", 64, kBrown),
    strip(kDogEscape, "polkan\\ani_06", 64, kBrown),
    strip(kLadyWalkLeft, "tetka\\ani_01", 64, kBrown),
    // list 1, step 1
    mirrored(kLadyWalkRight, "tetka\\ani_01", 64, kBrown),
    strip(kLadyHangLeft, "tetka\\ani_03", 64, kBrown),
    mirrored(kLadyHangRight, "tetka\\ani_03", 64, kBrown),
    strip(kLadyClimb, "tetka\\ani_02", 64, kBrown),
    strip(kLadyTrapped, "tetka\\ani_04", 64, kBrown),
    strip(kLadyStill, "tetka\\ani_06", 64, kBrown),
    strip(kLadyEscape, "tetka\\ani_05", 64, kBrown),
    block(193, "fon\\mashine1", 175, kBlue),
    // list 1, step 2
    block(194, "fon\\mashine2", 176, kBlue),
    block(195, "fon\\mashine3", 177, kBlue),
    block(196, "fon\\mashine4", 178, kBlue),
    block(197, "fon\\mashine5", 179, kBlue),
    block(198, "fon\\p11", 180, kBlue),
    block(199, "fon\\p12", 181, kBlue),
    block(200, "fon\\p21", 182, kBlue),
    block(201, "fon\\p22", 183, kBlue),
    // list 1, step 3
    block(202, "fon\\pipe1", 184, kBlue),
    block(203, "fon\\pipe2", 185, kBlue),
    block(204, "fon\\pipe3", 186, kBlue),
    block(205, "fon\\pipe4", 187, kBlue),
    block(206, "fon\\pipe5", 188, kBlue),
    block(207, "fon\\pipe6", 189, kBlue),
    block(208, "fon\\pipe7", 190, kBlue),
    block(209, "fon\\pipe8", 191, kBlue),
    block(210, "fon\\pipe9", 192, kBlue),
    // list 1, step 4
    block(222, "steny\\arka1", 204, kBlue),
    block(223, "steny\\arka2", 205, kBlue),
    block(224, "steny\\arka3", 206, kBlue),
    block(230, "sten_jel\\door_jel", 212, kBrown),
    block(231, "sten_jel\\chain_proz", 213, kBrown),
    block(232, "sten_jel\\kand_proz", 214, kBrown),
    block(233, "sten_jel\\vilka", 215, kBrown),
    block(257, "dveri\\d11", 294, kBlue),
    block(258, "dveri\\d12", 295, kBlue),
    block(259, "dveri\\d21", 296, kBlue),
    block(260, "dveri\\d22", 297, kBlue),
    // list 1, step 5
    block(329, "dveri\\animation_door_iron_01", 298, kBlue),
    block(330, "dveri\\animation_door_iron_04", 299, kBlue),
    block(331, "dveri\\animation_door_iron_02", 300, kBlue),
    block(332, "dveri\\animation_door_iron_03", 301, kBlue),
    block(261, "jelezo\\pol_der", 233, kBlue),
    block(262, "jelezo\\animation_floor_iron_01", 302, kBlue),
    block(263, "jelezo\\animation_floor_iron_close01", 303, kBlue),
    // list 1, step 6
    block(264, "jelezo\\pol_der_full", 234, kBlue),
    block(265, "jelezo\\animation_floor_iron_01", 304, kBlue),
    block(266, "jelezo\\animation_floor_iron_close01", 305, kBlue),
    block(267, "poly\\kam_jel", 306, kBlue),
    block(268, "poly\\kam_jel2", 231, kBlue),
    block(269, "poly\\pj", 232, kBlue),
    block(270, "jelezo\\telek_jel", 235, kBlue),
    block(271, "jelezo\\trub_jel", 236, kBlue),
    // list 1, step 7
    block(312, "fon\\a11", 277, kBrown),
    block(313, "fon\\a12", 278, kBrown),
    block(314, "fon\\a13", 279, kBrown),
    block(315, "fon\\a21", 280, kBrown),
    block(316, "fon\\a22", 281, kBrown),
    block(317, "fon\\a23", 282, kBrown),
};
// clang-format on

/// Entries of each step, in the order of `kEntries`.
constexpr std::array<std::array<std::size_t, kLoadingSteps>, kLoadingLists> kStepSizes{{
    {41, 41, 27, 23, 30, 24, 14, 43},
    {9, 8, 8, 9, 11, 7, 8, 6},
}};

constexpr std::size_t firstOf(std::size_t list, std::size_t step) {
    std::size_t first = 0;
    for (std::size_t l = 0; l <= list; ++l)
        for (std::size_t s = 0; s < (l == list ? step : kStepSizes[l].size()); ++s) first += kStepSizes[l][s];
    return first;
}

constexpr bool areUnique(int LoadEntry::*number) {
    std::array<bool, kAnimationSlots> taken{};
    for (const LoadEntry& entry : kEntries) {
        if (entry.*number == kNoSpriteNumber) continue;
        if (std::exchange(taken[static_cast<std::size_t>(entry.*number)], true)) return false;
    }
    return true;
}

static_assert(firstOf(1, 0) == 243, "the first list");
static_assert(std::size(kEntries) == firstOf(1, kLoadingSteps), "every entry belongs to a step");
static_assert(areUnique(&LoadEntry::id), "two strips would fight for one place in the animation table");
static_assert(areUnique(&LoadEntry::spriteNumber), "the block table could not tell two strips apart");

}  // namespace

std::string LoadEntry::path() const { return std::string(kPictureFolder) + std::string(stem) + ".bmp"; }

std::span<const LoadEntry> loadingList() { return kEntries; }

std::span<const LoadEntry> loadingStep(int list, int step) {
    const auto l = static_cast<std::size_t>(list);
    const auto s = static_cast<std::size_t>(step);
    return std::span(kEntries).subspan(firstOf(l, s), kStepSizes[l][s]);
}

}  // namespace grub
