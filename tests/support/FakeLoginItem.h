#pragma once

#include "settings/LoginItem.h"

#include <vector>

namespace korvane::test {

/// A login item that does what it is told, or fails with the reason given.
class FakeLoginItem : public LoginItem {
public:
    bool isEnabled() const override
    {
        ++looks;
        return enabled;
    }
    std::optional<std::string> setEnabled(bool isEnabled) override
    {
        told.push_back(isEnabled);
        if (!failure)
            enabled = isEnabled;
        return failure;
    }

    bool enabled = false;
    std::optional<std::string> failure;
    std::vector<bool> told;
    mutable int looks = 0;
};

} // namespace korvane::test
