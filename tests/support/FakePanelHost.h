#pragma once

#include "panel/PanelHost.h"

#include <optional>
#include <utility>
#include <vector>

namespace korvane::test {

/// A shell that shows nothing and remembers what it was asked for.
class FakePanelHost : public PanelHost {
public:
    struct Preview {
        ClipItem clip;
        std::optional<double> rowMidY;
    };

    void close() override { ++closes; }
    void showPreview(const ClipItem& clip, std::optional<double> rowMidY) override
    {
        previews.push_back({ clip, rowMidY });
        isPreviewShown = true;
    }
    void hidePreview() override
    {
        ++previewHides;
        isPreviewShown = false;
    }
    bool isPreviewVisible() const override { return isPreviewShown; }
    void openPreferences() override { ++preferencesOpened; }
    void checkForUpdates() override { ++updateChecks; }
    void openMakersPage() override { ++makersPagesOpened; }
    void quit() override { ++quits; }

    int closes = 0;
    std::vector<Preview> previews;
    int previewHides = 0;
    bool isPreviewShown = false;
    int preferencesOpened = 0;
    int updateChecks = 0;
    int makersPagesOpened = 0;
    int quits = 0;
};

} // namespace korvane::test
