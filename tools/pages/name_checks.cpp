#include "name_checks.h"

#include <algorithm>

#include "asked_names.h"

namespace grub {

namespace {

/// The least side lengths of what the mouse hits.
constexpr double kTargetWidth = 72;
constexpr double kTargetHeight = 36;

const PageLayout* layoutOf(const PageSource& source, std::string_view name) {
    const auto found = std::ranges::find(source.layouts, name, &PageLayout::name);
    return found == source.layouts.end() ? nullptr : &*found;
}

const PageItem* itemOf(const PageLayout& layout, std::string_view name) {
    const auto found = std::ranges::find(layout.items, name, &PageItem::name);
    return found == layout.items.end() ? nullptr : &*found;
}

/// The element that a hit test finds: the first of that name.
const PageElement* elementOf(const PageLayout& layout, std::string_view name) {
    for (const PageItem& item : layout.items) {
        const auto found = std::ranges::find(item.pictures, name, &PageElement::name);
        if (found != item.pictures.end()) return &*found;
    }
    return nullptr;
}

std::string inLayout(std::string_view what, std::string_view name, std::string_view layout) {
    return std::string(what) + ' ' + std::string(name) + " of layout " + std::string(layout);
}

/// The name of a sheet of the help, from 0 on.
std::string sheetName(std::size_t number) {
    return std::string(number < 10 ? "help_0" : "help_") + std::to_string(number);
}

/// How many sheets the help has; none is left out between them.
std::size_t helpSheets(const PageLayout& layout) {
    std::size_t count = 0;
    while (itemOf(layout, sheetName(count)) != nullptr) ++count;
    return count;
}

bool isHelpSheet(const PageLayout& layout, const PageItem& item) {
    if (layout.name != "help_menu") return false;
    for (std::size_t i = 0; i < helpSheets(layout); ++i) {
        if (item.name == sheetName(i)) return true;
    }
    return false;
}

void checkItems(const PageSource& source, std::vector<std::string>& faults) {
    for (const AskedItem& asked : kAskedItems) {
        if (asked.interface != source.name) continue;
        const PageLayout* layout = layoutOf(source, asked.layout);
        const PageItem* item = layout == nullptr ? nullptr : itemOf(*layout, asked.item);
        const std::string name = inLayout("item", asked.item, asked.layout);
        if (item == nullptr) {
            faults.push_back(source.name + ": the game draws " + name + ", which is missing");
        } else if ((asked.pictures > 0 && item->pictures.size() != asked.pictures) ||
                   (asked.texts > 0 && item->texts.size() != asked.texts)) {
            faults.push_back(item->place.says("the game draws " + std::to_string(asked.pictures) + " pictures and " +
                                              std::to_string(asked.texts) + " texts of " + name));
        }
    }
    for (const PageLayout& layout : source.layouts) {
        if (layout.name == "help_menu" && helpSheets(layout) < kLeastHelpSheets)
            faults.push_back(layout.place.says("the help has no item " + sheetName(helpSheets(layout))));
        for (const PageItem& item : layout.items) {
            const bool asked = std::ranges::any_of(kAskedItems, [&](const AskedItem& a) {
                return a.interface == source.name && a.layout == layout.name && a.item == item.name;
            });
            if (!asked && !isHelpSheet(layout, item))
                faults.push_back(item.place.says("the game never draws " + item.name));
        }
    }
}

std::vector<AskedTarget> targetsOf(std::string_view interface, const PageLayout& layout) {
    std::vector<AskedTarget> targets;
    for (const AskedTarget& target : kAskedTargets) {
        if (target.interface == interface && target.layout == layout.name) targets.push_back(target);
    }
    if (itemOf(layout, "button_up") != nullptr) {
        for (const std::string_view name : kColumnTargets) targets.push_back({interface, layout.name, name});
    }
    return targets;
}

void checkTargets(const PageSource& source, const PageLayout& layout, std::vector<std::string>& faults) {
    struct Place {
        const PageElement* element;
        bool ground;
    };
    std::vector<Place> places;
    for (const AskedTarget& target : targetsOf(source.name, layout)) {
        const PageElement* element = elementOf(layout, target.element);
        if (element == nullptr) {
            faults.push_back(layout.place.says("the mouse hits " + inLayout("element", target.element, layout.name) +
                                               ", which is missing"));
            continue;
        }
        const Rect area = element->area();
        if (area.width < kTargetWidth || area.height < kTargetHeight)
            faults.push_back(element->place.says(element->name + " is smaller than 72 x 36 and hard to hit"));
        for (const Place& other : places) {
            if (!target.ground && !other.ground && overlap(area, other.element->area()))
                faults.push_back(element->place.says(element->name + " lies on " + other.element->name));
        }
        places.push_back({element, target.ground});
    }
}

void checkFonts(const PageSource& source, std::vector<std::string>& faults) {
    if (source.name != "make_m64") return;
    const std::vector<FontKey> fonts = source.fonts();
    for (std::size_t i = 0; i < kMenuFonts.size(); ++i) {
        if (i < fonts.size() && fonts[i].text() == kMenuFonts[i]) continue;
        faults.push_back(source.name + ": font " + std::to_string(i) + " must be " + std::string(kMenuFonts[i]));
    }
}

}  // namespace

bool overlap(const Rect& a, const Rect& b) {
    return a.x < b.right() && b.x < a.right() && a.y < b.bottom() && b.y < a.bottom();
}

bool holds(const Rect& outer, const Rect& inner) {
    return outer.x <= inner.x && outer.y <= inner.y && inner.right() <= outer.right() &&
           inner.bottom() <= outer.bottom();
}

void checkNames(const PageSource& source, std::vector<std::string>& faults) {
    const bool known = std::ranges::any_of(kAskedItems, [&](const AskedItem& a) { return a.interface == source.name; });
    if (!known) return;
    checkItems(source, faults);
    for (const PageLayout& layout : source.layouts) checkTargets(source, layout, faults);
    checkFonts(source, faults);
}

}  // namespace grub
