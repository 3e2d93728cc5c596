#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include "bytes.h"
#include "scratch_directory.h"

namespace grub {

/// A directory in which the programs run as a player starts them.
class ProgramRun : public testing::Test {
protected:
    static inline const std::string kGame = "'" GRUB_BIN_DIR "/grubaway' --data '" GRUB_DATA_DIR "' ";
    static inline const std::string kTool = "'" GRUB_BIN_DIR "/grubtool' ";

    /// The exit code of a shell command; what it says goes to `out` and `errors`.
    int run(const std::string& command) {
        const std::string path = directory_.path().string();
        const int status = std::system(("cd '" + path + "' && " + command + " >out.txt 2>errors.txt").c_str());
        out = text("out.txt");
        errors = text("errors.txt");
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    /// Plays the game by a script, as fast as it can.
    int play(const std::string& script, const std::string& options = "") {
        write("play.script", script);
        return run(kGame + "--script play.script " + options);
    }
    [[nodiscard]] Bytes bytes(const std::string& name) const { return directory_.read(name); }
    [[nodiscard]] std::string text(const std::string& name) const {
        const Bytes contents = bytes(name);
        return {contents.begin(), contents.end()};
    }
    void write(const std::string& name, const std::string& contents) { directory_.write(name, bytesOf(contents)); }

    std::string out, errors;

private:
    ScratchDirectory directory_;
};

}  // namespace grub
