#include "engine_services.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fake_renderer.h"

namespace grub {
namespace {

struct LoggingMouse final : MouseService {
    explicit LoggingMouse(std::string& log) : log_(log) {}
    ~LoggingMouse() override { log_ += "mouse destroyed, "; }
    void postMouseMessage(std::uint32_t, std::uint32_t) override {}
    std::string& log_;
};

struct LoggingKeyboard final : KeyboardService {
    explicit LoggingKeyboard(std::string& log) : log_(log) {}
    ~LoggingKeyboard() override { log_ += "keyboard destroyed, "; }
    void postKeyMessage(std::uint32_t, std::uint32_t) override {}
    std::string& log_;
};

struct LoggingDevice final : AudioDevice {
    explicit LoggingDevice(std::string& log) : log_(log) {}
    ~LoggingDevice() override { log_ += "sound destroyed, "; }
    bool shutdown() override { return log_ += "sound shut down, ", true; }
    bool init() override { return true; }
    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] std::unique_ptr<SoundBuffer> createSound() override { return nullptr; }
    [[nodiscard]] std::unique_ptr<SoundBuffer> createMusic() override { return nullptr; }
    bool play(SoundBuffer& /*sound*/, bool /*loop*/) override { return false; }
    bool playLooped(SoundBuffer& /*sound*/) override { return false; }
    bool stop(SoundBuffer& /*sound*/) override { return false; }
    bool stopMusic(SoundBuffer& /*sound*/) override { return false; }
    std::string& log_;
};

struct LoggingRenderer final : FakeRenderer {
    explicit LoggingRenderer(std::string& log) : log_(log) {}
    ~LoggingRenderer() override { log_ += "renderer destroyed, "; }
    bool shutdown() override { return log_ += "renderer shut down, ", true; }
    std::string& log_;
};

void installAllButTheRenderer(std::string& log) {
    EngineServices::installMouse(std::make_unique<LoggingMouse>(log));
    EngineServices::installKeyboard(std::make_unique<LoggingKeyboard>(log));
    EngineServices::installSoundDevice(std::make_unique<LoggingDevice>(log));
}

TEST(EngineServices, AreReplacedAndShutDownInOrderAndTheRendererIsOnlyUnhooked) {
    std::string log;
    LoggingRenderer replaced(log);
    LoggingRenderer renderer(log);
    installAllButTheRenderer(log);
    installAllButTheRenderer(log);
    EXPECT_EQ(log, "mouse destroyed, keyboard destroyed, sound destroyed, ");
    log.clear();
    EngineServices::shutdown();
    EXPECT_EQ(log, "keyboard destroyed, mouse destroyed, sound shut down, sound destroyed, renderer shut down, ");
    EXPECT_EQ(EngineServices::renderer(), nullptr);
    EXPECT_EQ(EngineServices::mouse(), nullptr);
    EXPECT_EQ(EngineServices::keyboard(), nullptr);
    EXPECT_EQ(EngineServices::soundDevice(), nullptr);
}

}  // namespace
}  // namespace grub
