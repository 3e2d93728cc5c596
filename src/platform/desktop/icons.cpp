#include "desktop/icons.h"

#include <SDL.h>
#include <windows.h>

#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "desktop/window.h"

namespace platform {
namespace {

struct IconPixels {
    std::vector<std::uint32_t> argb;
    int width;
    int height;
};

/// The icons that the program offers, by number.
struct IconTable {
    std::mutex lock;
    std::map<std::uint16_t, std::shared_ptr<const IconPixels>> icons;
};

IconTable& table() {
    static auto* all = new IconTable;
    return *all;
}

std::shared_ptr<const IconPixels> find(std::uintptr_t id) {
    const std::lock_guard lock(table().lock);
    const auto found = table().icons.find(static_cast<std::uint16_t>(id));
    return found == table().icons.end() ? nullptr : found->second;
}

}  // namespace

void setIconResource(std::uint16_t id, std::span<const std::uint32_t> argb, int width, int height) {
    auto icon = std::make_shared<const IconPixels>(IconPixels{{argb.begin(), argb.end()}, width, height});
    const std::lock_guard lock(table().lock);
    table().icons[id] = std::move(icon);
}

void showIcon(Window& window) {
    const auto icon = find(reinterpret_cast<std::uintptr_t>(window.windowClass->icon));
    if (!icon) return;  // a system icon: the desktop has a picture of its own for windows without one
    auto pixels = icon->argb;
    const std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)> surface(
        SDL_CreateRGBSurfaceWithFormatFrom(pixels.data(), icon->width, icon->height, 32, icon->width * 4,
                                           SDL_PIXELFORMAT_ARGB8888),
        SDL_FreeSurface);
    if (surface) SDL_SetWindowIcon(window.system, surface.get());
}

}  // namespace platform

HICON LoadIconA(HINSTANCE /*instance*/, LPCSTR name) {
    // A handle is the resource's number; system icons have numbers of their own and no pixels. There is one module, so
    // its icons are found whatever the instance.
    const auto id = reinterpret_cast<std::uintptr_t>(name);
    const bool known = name == IDI_WINLOGO || platform::find(id) != nullptr;
    return known ? reinterpret_cast<HICON>(id) : nullptr;
}

HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name) {
    const bool known = instance == nullptr && name == IDC_ARROW;
    return known ? reinterpret_cast<HCURSOR>(const_cast<char*>(name)) : nullptr;
}
