#include <gtest/gtest.h>
#include <windows.h>

#include "input_messages.h"
#include "recording_scene.h"

namespace grub {
namespace {

using enum MessageType;

/// An application whose one scene is current, with both services on it.
class Input : public testing::Test {
protected:
    Input() {
        application_.registerScene(1, scene_);
        application_.run(1);
    }

    // The message that the last post brought; the test fails when there is not exactly one.
    template <class Message>
    const Message& received() {
        scene_.messages.clear();
        scene_.processMessages();
        EXPECT_EQ(scene_.messages.size(), 1U);
        return static_cast<const Message&>(*scene_.messages.at(0));
    }

    WindowlessApplication application_;
    RecordingScene scene_;
    KeyboardInput keyboard_{application_};
    MouseInput mouse_{application_};
};

TEST_F(Input, KeysArriveUnderTheirCodes) {
    struct Row {
        const char* key;
        std::uint32_t virtualKey, keyCode;
        std::uint8_t character;
    };
    const Row rows[] = {
        {"up", 0x26, 0, 0},        {"down", 0x28, 1, 0},      {"left", 0x25, 2, 0},
        {"right", 0x27, 3, 0},     {"space", 0x20, 4, ' '},   {"enter", 0x0D, 0x10001, '\r'},
        {"A", 0x41, 0x10006, 'A'}, {"B", 0x42, 0x10007, 'B'}, {"escape", 0x1B, 0x10003, 0x1B},
        {"Z", 0x5A, 0x5A, 'Z'},    {"C", 0x43, 0x10008, 'C'}, {"keypad 5", 0x65, 0x65, '5'},
        {"X", 0x58, 0x58, 'X'},    {"shift", 0x10, 0x10, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.key);
        for (const UINT message : {WM_KEYDOWN, WM_KEYUP}) {
            keyboard_.postKeyMessage(row.virtualKey, message);
            const auto& key = received<KeyMessage>();
            EXPECT_EQ(key.type, message == WM_KEYUP ? Released : Pressed);
            EXPECT_EQ(key.keyCode, row.keyCode);
            EXPECT_EQ(key.character, row.character);
        }
    }
}

TEST_F(Input, MouseMessagesNameTheButtonAndThePlace) {
    struct Row {
        std::uint32_t windowsMessage;
        MessageType type;
        std::uint32_t button, position;
        int x, y;
    };
    const Row rows[] = {
        {0x200, MouseMoved, 10, 0x0257'031FU, 799, 599},
        {0x201, Pressed, 11, 0xFFFE'FFFFU, -1, -2},  // left of the picture and above it
        {0x202, Released, 11, 0x8000'7FFFU, 32767, -32768},
        {0x203, Pressed, 14, 0, 0, 0},
        {0x204, Pressed, 12, 0, 0, 0},
        {0x205, Released, 12, 0, 0, 0},
        {0x206, Pressed, 15, 0, 0, 0},
        {0x207, Pressed, 13, 0, 0, 0},
        {0x208, Released, 13, 0, 0, 0},
        {0x20A, Pressed, 10, 0, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << std::hex << row.windowsMessage);
        mouse_.postMouseMessage(row.position, row.windowsMessage);
        const auto& mouse = received<MouseMessage>();
        EXPECT_EQ(mouse.type, row.type);
        EXPECT_EQ(static_cast<std::uint32_t>(mouse.button), row.button);
        EXPECT_EQ(mouse.x, row.x);
        EXPECT_EQ(mouse.y, row.y);
    }
}

}  // namespace
}  // namespace grub
