#include "engine_services.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "recording_scene.h"

namespace grub {
namespace {

using testing::ElementsAre;
using Log = std::vector<std::string>;

class LoggingRenderer final : public Renderer {
public:
    LoggingRenderer(Log& log, bool begins = true) : log_(log), begins_(begins) {}
    ~LoggingRenderer() override { log_.push_back("renderer destroyed"); }
    bool init() override { return true; }
    bool shutdown() override { return write("renderer shut down"); }
    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] Texture* createTexture(std::uint16_t, std::uint16_t) override { return nullptr; }
    bool beginFrame() override { return write("begin") && begins_; }
    bool endFrame() override { return write("end"); }
    bool clearRect(std::uint16_t, std::uint16_t, std::uint16_t, std::uint16_t, Colour) override { return true; }
    bool clear(Colour) override { return true; }
    bool drawPart(std::int16_t, std::int16_t, const Texture&, std::int16_t, std::int16_t, std::uint16_t, std::uint16_t,
                  float) override {
        return true;
    }
    bool draw(std::int16_t, std::int16_t, const Texture&, float) override { return true; }

private:
    bool write(const char* what) {
        log_.emplace_back(what);
        return true;
    }

    Log& log_;
    bool begins_;
};

struct FakeMouse final : MouseService {
    explicit FakeMouse(Log& log) : log_(log) {}
    ~FakeMouse() override { log_.push_back("mouse destroyed"); }
    void postMouseMessage(std::uint32_t, std::uint32_t) override {}
    Log& log_;
};

struct FakeKeyboard final : KeyboardService {
    explicit FakeKeyboard(Log& log) : log_(log) {}
    ~FakeKeyboard() override { log_.push_back("keyboard destroyed"); }
    void postKeyMessage(std::uint32_t, std::uint32_t) override {}
    Log& log_;
};

struct FakeSoundDevice final : AudioDevice {
    explicit FakeSoundDevice(Log& log) : log_(log) {}
    ~FakeSoundDevice() override { log_.push_back("sound destroyed"); }
    bool init() override { return true; }
    bool shutdown() override { return log_.push_back("sound shut down"), true; }
    [[nodiscard]] bool isReady() const override { return true; }
    [[nodiscard]] std::unique_ptr<SoundBuffer> createSound() override { return nullptr; }
    [[nodiscard]] std::unique_ptr<SoundBuffer> createMusic() override { return nullptr; }
    bool play(SoundBuffer&, bool) override { return false; }
    bool playLooped(SoundBuffer&) override { return false; }
    bool stop(SoundBuffer&) override { return false; }
    bool stopMusic(SoundBuffer&) override { return false; }
    Log& log_;
};

void installAll(Renderer& renderer, Log& log) {
    EngineServices::installRenderer(&renderer);
    EngineServices::installMouse(std::make_unique<FakeMouse>(log));
    EngineServices::installKeyboard(std::make_unique<FakeKeyboard>(log));
    EngineServices::installSoundDevice(std::make_unique<FakeSoundDevice>(log));
}

TEST(EngineServices, ShutDownFromTheKeyboardToTheRendererWhichIsOnlyUnhooked) {
    Log log;
    LoggingRenderer renderer(log);
    installAll(renderer, log);
    EXPECT_EQ(EngineServices::renderer(), &renderer);
    EngineServices::shutdown();
    EXPECT_THAT(log, ElementsAre("keyboard destroyed", "mouse destroyed", "sound shut down", "sound destroyed",
                                 "renderer shut down"));
    EXPECT_EQ(EngineServices::renderer(), nullptr);
    EXPECT_EQ(EngineServices::mouse(), nullptr);
    EXPECT_EQ(EngineServices::keyboard(), nullptr);
    EXPECT_EQ(EngineServices::soundDevice(), nullptr);
    EngineServices::shutdown();
    EXPECT_EQ(log.size(), 5U) << "nothing is left to shut down";
}

TEST(EngineServices, InstallingIntoAnOccupiedSlotDestroysAllButTheRenderer) {
    Log log;
    LoggingRenderer first(log);
    LoggingRenderer second(log);
    Log ignored;
    installAll(first, log);
    installAll(second, ignored);
    EXPECT_THAT(log, ElementsAre("mouse destroyed", "keyboard destroyed", "sound destroyed"));
    EXPECT_EQ(EngineServices::renderer(), &second);
    EngineServices::shutdown();
}

TEST(SceneDraw, PresentsAWholeFrameUnlessItCannotBegin) {
    Log log;
    RecordingScene scene;
    scene.draw(true);  // without a renderer: nothing
    LoggingRenderer ready(log);
    EngineServices::installRenderer(&ready);
    scene.draw(false);
    scene.draw(true);
    EXPECT_THAT(log, ElementsAre("begin", "end"));

    LoggingRenderer refusing(log, false);
    EngineServices::installRenderer(&refusing);
    scene.draw(true);
    EXPECT_THAT(log, ElementsAre("begin", "end", "begin"));
    EngineServices::installRenderer(nullptr);
}

}  // namespace
}  // namespace grub
