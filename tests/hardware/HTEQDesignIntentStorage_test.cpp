#include "platform/HTEQDesignIntentStorage.h"

#include <gtest/gtest.h>

#include "hardware/Documents.h"

using Key = HTEQDesignIntentStorage::Key;

TEST(DesignIntent, AnExplicitValueWins) {
    HTEQDesignIntentStorage intent;
    intent.setExplicitValue(Key::embedded, false);
    intent.setComputedValue(Key::embedded, true);
    intent.setComputedValue(Key::dataCenter, true);
    intent.setComputedValue(Key::serverManaged, true);
    intent.setExplicitValue(Key::externalHost, true);
    intent.setComputedValue(static_cast<Key>(3), true);
    intent.setExplicitValue(static_cast<Key>(3), false);
    EXPECT_FALSE(intent.getEmbedded());
    EXPECT_EQ(documentOf(intent), R"({"designIntent": {"dataCenter": {"value": "true","explicit": "false"},)"
                                  R"("embedded": {"value": "false","explicit": "true"},)"
                                  R"("externalHost": {"value": "true","explicit": "true"},)"
                                  R"("serverManaged": {"value": "true","explicit": "false"}}})");
}
