#include "media/fallback_media_control.h"

#include <gmock/gmock.h>

#include "support/recording_media_control.h"

namespace media {
namespace {

using support::RecordingMediaControl;
using testing::ElementsAre;
using testing::IsEmpty;

/// Two recording back-ends behind one control.
struct Pair {
    RecordingMediaControl* first = new RecordingMediaControl;
    RecordingMediaControl* other = nullptr;
    int made = 0;
    unsigned otherRefuses = 0;
    FallbackMediaControl control{std::unique_ptr<MediaControl>(first), [this] {
                                     ++made;
                                     other = new RecordingMediaControl;
                                     other->replyTo("open b.mpg alias VIDEO", "", otherRefuses);
                                     return std::unique_ptr<MediaControl>(other);
                                 }};
};

TEST(FallbackMediaControl, LeavesWhatTheFirstOneOpensToIt) {
    Pair pair;
    pair.first->replyTo("status VIDEO length", "5000");
    EXPECT_EQ(pair.control.send("open a.mpg alias VIDEO parent 5 style child").error, 0U);
    EXPECT_EQ(pair.control.send("status VIDEO length", 128).text, "5000");
    pair.control.send("close VIDEO");
    EXPECT_EQ(pair.made, 0) << "the other one is not even made";
    EXPECT_THAT(pair.first->commands(), ElementsAre("open a.mpg alias VIDEO parent 5 style child",
                                                    "status VIDEO length", "close VIDEO"));
}

TEST(FallbackMediaControl, HandsARefusedAliasToTheOtherUntilItsClose) {
    Pair pair;
    pair.first->replyTo("open b.mpg alias VIDEO", "", 277);
    EXPECT_EQ(pair.control.send("open b.mpg alias VIDEO").error, 0U);
    for (const char* command :
         {"set VIDEO audio all off", " put VIDEO window at 0 0 10 10", "play VIDEO",
          "setaudio VIDEO volume to 3", "update VIDEO hdc 7", "STOP VIDEO", "close VIDEO"}) {
        pair.control.send(command);
    }
    EXPECT_THAT(pair.first->take(), ElementsAre("open b.mpg alias VIDEO"));
    EXPECT_THAT(pair.other->take(),
                ElementsAre("open b.mpg alias VIDEO", "set VIDEO audio all off",
                            " put VIDEO window at 0 0 10 10", "play VIDEO", "setaudio VIDEO volume to 3",
                            "update VIDEO hdc 7", "STOP VIDEO", "close VIDEO"));
    pair.control.send("play VIDEO");
    EXPECT_THAT(pair.first->take(), ElementsAre("play VIDEO")) << "closed is closed";
    EXPECT_THAT(pair.other->commands(), IsEmpty());
    EXPECT_EQ(pair.made, 1);
}

TEST(FallbackMediaControl, KeepsTheAliasesApart) {
    Pair pair;
    pair.first->replyTo("open b.mpg alias VIDEO", "", 277);
    pair.control.send("open b.mpg alias VIDEO");
    pair.control.send("open c.mp3 alias AUDIO");
    pair.control.send("play AUDIO");
    pair.control.send("play VIDEO");
    EXPECT_THAT(pair.first->commands(),
                ElementsAre("open b.mpg alias VIDEO", "open c.mp3 alias AUDIO", "play AUDIO"));
    EXPECT_THAT(pair.other->commands(), ElementsAre("open b.mpg alias VIDEO", "play VIDEO"));
}

TEST(FallbackMediaControl, TellsTheFirstOnesErrorWhereBothRefuse) {
    Pair pair;
    pair.otherRefuses = 296;
    pair.first->replyTo("open b.mpg alias VIDEO", "", 277);
    EXPECT_EQ(pair.control.send("open b.mpg alias VIDEO").error, 277U);
    pair.control.send("close VIDEO");
    EXPECT_THAT(pair.first->commands(), ElementsAre("open b.mpg alias VIDEO", "close VIDEO"));
}

TEST(FallbackMediaControl, PassesNonsenseOn) {
    Pair pair;
    pair.first->replyTo("nonsense", "", 261);
    EXPECT_EQ(pair.control.send("nonsense").error, 261U);
    EXPECT_EQ(pair.made, 0);
}

TEST(FallbackMediaControl, GivesFramesByTheOther) {
    Pair pair;
    MediaControl& frames = pair.control.frameSource();
    EXPECT_EQ(&frames, pair.other);
    EXPECT_EQ(&pair.control.frameSource(), &frames);
    EXPECT_EQ(pair.made, 1);
}

}  // namespace
}  // namespace media
