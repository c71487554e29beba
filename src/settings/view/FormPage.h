#pragma once

#include <QScrollArea>
#include <QString>

#include <memory>

class QVBoxLayout;

namespace korvane {

class FormSection;
class FormText;

/// A page of the settings window: sections one under the other, which scroll where they are higher
/// than the page. What gets the keyboard scrolls into view.
class FormPage : public QScrollArea {
public:
    static constexpr int pageWidth = 520;
    static constexpr int pageHeight = 420;

    explicit FormPage(QWidget* parent = nullptr);

    FormSection& addSection(const QString& title);
    /// A small text under what was added last.
    FormText& addCaption(const QString& text);
    /// Anything else, over the page's whole width.
    void addWidget(std::unique_ptr<QWidget> widget);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_contents; // its child
    QVBoxLayout* m_column;
};

} // namespace korvane
