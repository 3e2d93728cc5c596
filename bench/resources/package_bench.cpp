#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "package_writer.h"
#include "resource_package.h"
#include "scratch_directory.h"

namespace grub {
namespace {

/// The same resources as files of a directory and as one package. Sizes as those of strips and tables, 100 bytes to 64
/// KB.
class Resources {
public:
    explicit Resources(int count) {
        PackageWriter writer;
        for (int i = 0; i < count; ++i) {
            const std::string file = "picture_" + std::to_string(i) + ".bmp";
            const Bytes data(static_cast<std::size_t>(100 + i * 7919 % 65000), static_cast<std::uint8_t>(i));
            paths_.push_back(scratch_.write(file, data));
            names_.push_back(("data\\gif\\" + file).c_str());
            writer.add(names_.back().view(), data);
        }
        package_ = scratch_.write("all.pak", writer.package());
    }

    /// Opens the package and loads each resource once.
    template <class Visitor>
    void loadFromPackage(Visitor visit) const {
        ResourcePackage package(package_.c_str());
        for (const EngineString& name : names_) visit(package.load(name));
    }

    /// What a program without packages would do for each, with nothing of ours in between.
    template <class Visitor>
    void readFromDirectory(Visitor visit) const {
        for (const std::string& path : paths_) visit(readFile(path.c_str()));
    }

    /// Whether both ways give the same bytes.
    [[nodiscard]] bool agree() const {
        std::vector<SharedBuffer> loaded;
        std::vector<SharedBuffer> read;
        loadFromPackage([&](const SharedBuffer& buffer) { loaded.push_back(buffer); });
        readFromDirectory([&](const SharedBuffer& buffer) { read.push_back(buffer); });
        return std::equal(loaded.begin(), loaded.end(), read.begin(), read.end(),
                          [](const SharedBuffer& a, const SharedBuffer& b) {
                              return !a.empty() && std::ranges::equal(a.bytes(), b.bytes());
                          });
    }

private:
    static SharedBuffer readFile(const char* path) {
        const int file = open(path, O_RDONLY | O_CLOEXEC);
        struct stat facts {};
        if (file < 0 || fstat(file, &facts) != 0) return {};
        SharedBuffer buffer = SharedBuffer::create(static_cast<std::uint32_t>(facts.st_size));
        if (read(file, buffer.writableData(), buffer.size()) != facts.st_size) buffer.release();
        close(file);
        return buffer;
    }

    ScratchDirectory scratch_;
    std::vector<EngineString> names_;
    std::vector<std::string> paths_;
    std::string package_;
};

void loadAll(benchmark::State& state, int count, bool fromPackage) {
    const Resources resources(count);
    if (!resources.agree()) return state.SkipWithError("package and directory give different bytes");
    std::int64_t bytes = 0;
    const auto use = [&](const SharedBuffer& buffer) {
        benchmark::DoNotOptimize(buffer.data());
        bytes += buffer.size();
    };
    for (auto _ : state) {
        if (fromPackage) {
            resources.loadFromPackage(use);
        } else {
            resources.readFromDirectory(use);
        }
    }
    state.SetBytesProcessed(bytes);
    state.SetItemsProcessed(state.iterations() * count);
}

void loadThousand(benchmark::State& state, bool fromPackage) { loadAll(state, 1000, fromPackage); }
void loadGrowing(benchmark::State& state, bool fromPackage) {
    loadAll(state, static_cast<int>(state.range(0)), fromPackage);
}

BENCHMARK_CAPTURE(loadThousand, ours, true)->Name("package/ours")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(loadThousand, directory, false)->Name("package/directory")->Unit(benchmark::kMillisecond);
/// How the cost grows with the number of entries.
BENCHMARK_CAPTURE(loadGrowing, ours, true)->Name("package_entries/ours")->RangeMultiplier(4)->Range(16, 1024);
BENCHMARK_CAPTURE(loadGrowing, directory, false)
    ->Name("package_entries/directory")
    ->RangeMultiplier(4)
    ->Range(16, 1024);

}  // namespace
}  // namespace grub
