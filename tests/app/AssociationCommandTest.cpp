#include "app/AssociationCommand.h"

#include <gtest/gtest.h>

namespace vireo {
namespace {

/// A system that does, or refuses, what it is asked.
struct FakeAssociation : FileAssociation {
    AssociationState State() const override { return state; }
    bool Set() override { return Change(afterSet); }
    bool Undo() override { return Change(AssociationState::Off); }
    bool Change(AssociationState to)
    {
        if (!refuses)
            state = to;
        return !refuses;
    }

    AssociationState state = AssociationState::Off;
    AssociationState afterSet = AssociationState::On;
    bool refuses = false;
};

TEST(AssociationCommand, TogglesAndTellsWhatWentOtherwise)
{
    struct Row {
        const char* name;
        AssociationState before;
        AssociationState afterSet;
        bool refuses;
        bool isTicked;
        const char* told;
    };
    constexpr auto kOff = AssociationState::Off;
    constexpr auto kOn = AssociationState::On;
    constexpr auto kOverruled = AssociationState::Overruled;
    const Row rows[] = {
        {"set", kOff, kOn, false, true, ""},
        {"undone", kOn, kOn, false, false, ""},
        {"an overruled choice can be undone too", kOverruled, kOn, false, false, ""},
        {"overruled", kOff, kOverruled, false, true, "\"Open with\""},
        {"refused", kOff, kOn, true, false, "does not let"},
        {"undoing refused", kOn, kOn, true, true, "does not let"},
    };
    for (const Row& row : rows) {
        FakeAssociation association;
        association.state = row.before;
        association.afterSet = row.afterSet;
        association.refuses = row.refuses;
        const std::string_view told = ToggleAssociation(association);
        EXPECT_NE(told.find(row.told), std::string_view::npos) << row.name;
        EXPECT_EQ(told.empty(), *row.told == '\0') << row.name;
        EXPECT_EQ(IsAssociated(association), row.isTicked) << row.name;
    }
}

} // namespace
} // namespace vireo
