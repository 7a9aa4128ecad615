#include "support/recording_media_control.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace support {
namespace {

using testing::ElementsAre;

TEST(RecordingMediaControl, KeepsCommandsAndSizesInOrder) {
    RecordingMediaControl media;
    media.send("stop VIDEO");
    media.send("status VIDEO length", media::kReplySize);
    EXPECT_THAT(media.sent(), ElementsAre(RecordingMediaControl::Sent{"stop VIDEO", 0},
                                          RecordingMediaControl::Sent{"status VIDEO length", 128}));
    EXPECT_THAT(media.take(), ElementsAre("stop VIDEO", "status VIDEO length"));
    EXPECT_TRUE(media.commands().empty());
}

TEST(RecordingMediaControl, AnswersScriptedRepliesBeforeTheStandingOne) {
    RecordingMediaControl media;
    media.replyTo("status VIDEO length", "4000");
    media.replyOnce("status VIDEO length", "1");
    media.replyOnce("status VIDEO length", "", 263);
    EXPECT_EQ(media.send("status VIDEO length", 128), (media::MediaReply{"1", 0}));
    EXPECT_EQ(media.send("status VIDEO length", 128), (media::MediaReply{"", 263}));
    EXPECT_EQ(media.send("status VIDEO length", 128), (media::MediaReply{"4000", 0}));
    EXPECT_EQ(media.send("status VIDEO length", 3), (media::MediaReply{"40", 0})) << "a short buffer";
    EXPECT_EQ(media.send("status VIDEO length"), (media::MediaReply{"", 0})) << "no buffer, no reply";
}

TEST(RecordingMediaControl, TellsTheTestWhenACommandComes) {
    RecordingMediaControl media;
    std::string seen;
    media.onSend = [&](const std::string& command) { seen = command; };
    media.send("close AUDIO");
    EXPECT_EQ(seen, "close AUDIO");
}

}  // namespace
}  // namespace support
