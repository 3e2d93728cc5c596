#include "engine_services.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "fake_renderer.h"

namespace grub {
namespace {

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

TEST(EngineServices, SoundEndsBeforeTheRendererWhichIsOnlyUnhooked) {
    std::string log;
    LoggingRenderer replaced(log);
    LoggingRenderer renderer(log);
    for (int i = 0; i < 2; ++i) EngineServices::installSoundDevice(std::make_unique<LoggingDevice>(log));
    EXPECT_EQ(log, "sound destroyed, ");
    log.clear();
    EngineServices::shutdown();
    EXPECT_EQ(log, "sound shut down, sound destroyed, renderer shut down, ");
    EXPECT_EQ(EngineServices::renderer(), nullptr);
    EXPECT_EQ(EngineServices::soundDevice(), nullptr);
}

}  // namespace
}  // namespace grub
