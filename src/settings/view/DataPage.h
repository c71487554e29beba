#pragma once

#include "model/Signal.h"
#include "settings/DataActions.h"
#include "settings/view/FormPage.h"

namespace korvane {

class ClipStore;
class FormSection;
class FormText;
class WorkMark;

/// The Data page: how many clips there are, and what can be done with them all.
class DataPage : public FormPage {
public:
    /// Both outlive the page.
    DataPage(ClipStore& store, DataActions& actions, QWidget* parent = nullptr);

private:
    void addButtons(FormSection& section);
    void count();

    ClipStore& m_store;
    DataActions& m_actions;
    FormText* m_total = nullptr;  // the page's
    FormText* m_pinned = nullptr; // the page's
    WorkMark* m_mark = nullptr;   // the page's
    Connection m_clipsChanged;
    Connection m_workChanged;
};

} // namespace korvane
