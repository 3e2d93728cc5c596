#include "render_commands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <atomic>
#include <filesystem>
#include <iostream>
#include <memory>
#include <thread>

#include "bmp_file.h"
#include "command.h"
#include "contact_sheet.h"
#include "label_pictures.h"
#include "picture_registry.h"
#include "strip.h"
#include "whole_file.h"

namespace grub {

namespace {

struct RenderOptions {
    std::string name;
    std::string output;
    std::vector<std::string> names;
    int zoom = 2;
    bool labels = false;
};

const PictureEntry& wanted(const std::string& name) {
    const PictureEntry* entry = findPicture(name);
    if (entry == nullptr) failWith(kFailed, name + ": there is no such picture");
    return *entry;
}

bool renderFile(const PictureEntry& entry, const std::filesystem::path& path) {
    std::error_code ignored;
    if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), ignored);
    return writeWholeFile(path, bmpBytes(renderStrip(entry)));
}

void list(const RenderOptions& options) {
    for (const PictureEntry& entry : allPictures()) {
        if (!options.labels || isLabel(entry)) std::cout << entry.name << '\n';
    }
}

void renderOne(const RenderOptions& options) {
    if (!renderFile(wanted(options.name), options.output)) failWith(kFailed, options.output + ": cannot be written");
}

/// One picture a thread at a time; which thread draws what does not show in the files.
void renderAll(const RenderOptions& options) {
    const auto& pictures = allPictures();
    std::atomic<std::size_t> next{0};
    std::atomic<bool> good{true};
    const auto work = [&] {
        for (std::size_t i = next++; i < pictures.size(); i = next++) {
            std::string file(pictures[i].name);
            std::replace(file.begin(), file.end(), '\\', '/');
            if (!renderFile(pictures[i], std::filesystem::path(options.output) / (file + ".bmp"))) good = false;
        }
    };
    {
        std::vector<std::jthread> threads;
        for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i) threads.emplace_back(work);
    }
    if (!good) failWith(kFailed, options.output + ": cannot be written below");
}

void renderSheet(const RenderOptions& options) {
    std::vector<const PictureEntry*> entries;
    for (const std::string& name : options.names) entries.push_back(&wanted(name));
    if (options.names.empty()) {
        for (const PictureEntry& entry : allPictures()) entries.push_back(&entry);
    }
    if (!writePng(options.output, contactSheet(entries, options.zoom)))
        failWith(kFailed, options.output + ": cannot be written");
}

}  // namespace

void addRenderCommands(CLI::App& app) {
    const auto options = std::make_shared<RenderOptions>();
    CLI::App* render = app.add_subcommand("render", "Draw the game's pictures");
    render->require_subcommand(1);

    CLI::App* names = render->add_subcommand("list", "Print the name of every picture");
    names->add_flag("--labels", options->labels, "Only of those that nobody has drawn yet");
    names->callback([options] { list(*options); });

    CLI::App* one = render->add_subcommand("picture", "Draw one strip as a BMP file");
    one->add_option("name", options->name, "Name, such as grub\\ani_01")->required();
    one->add_option("file", options->output, "BMP file to write")->required();
    one->callback([options] { renderOne(*options); });

    CLI::App* all = render->add_subcommand("all", "Draw every strip into a directory");
    all->add_option("directory", options->output, "Directory to write into")->required();
    all->callback([options] { renderAll(*options); });

    CLI::App* sheet = render->add_subcommand("sheet", "Draw a contact sheet to look at");
    sheet->add_option("file", options->output, "PNG file to write")->required();
    sheet->add_option("names", options->names, "Names; none means all");
    sheet->add_option("--zoom", options->zoom, "Times as large")->check(CLI::Range(1, 8));
    sheet->callback([options] { renderSheet(*options); });
}

}  // namespace grub
