#include "settings/view/AboutPage.h"

#include "look/view/Colours.h"
#include "look/view/Symbols.h"
#include "settings/AboutTexts.h"
#include "settings/view/FormText.h"

#include <QBoxLayout>
#include <QPainter>

namespace korvane {

namespace {
    constexpr int iconEdge = 96;
    constexpr int top = 64;
    constexpr int gapUnderIcon = 14;
    constexpr int gap = 6;

    QString text(std::string_view utf8)
    {
        return QString::fromUtf8(utf8);
    }

    /// The program's icon, or the symbol that stands for it.
    class IconView : public QWidget {
    public:
        IconView(Symbols& symbols, const QIcon& icon)
            : m_symbols(symbols)
            , m_icon(icon)
        {
            setFixedSize(iconEdge, iconEdge);
        }

    protected:
        void paintEvent(QPaintEvent*) override
        {
            QPainter painter(this);
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            if (m_icon.isNull())
                m_symbols.paint(painter, abouttexts::symbolWithoutIcon, rect(), iconEdge,
                    coloursOf(palette()).text);
            else
                m_icon.paint(&painter, rect());
        }

    private:
        Symbols& m_symbols;
        QIcon m_icon;
    };
} // namespace

AboutPage::AboutPage(Symbols& symbols, const QIcon& icon, std::string_view version, QWidget* parent)
    : FormPage(parent)
{
    auto column = std::make_unique<QVBoxLayout>();
    column->setContentsMargins(0, top, 0, 0);
    column->setSpacing(gap);
    column->addWidget(std::make_unique<IconView>(symbols, icon).release(), 0, Qt::AlignHCenter);
    column->addSpacing(gapUnderIcon);
    const auto add = [&column](const QString& line, FormText::Tone tone) {
        column->addWidget(std::make_unique<FormText>(line, tone).release(), 0, Qt::AlignHCenter);
    };
    add(text(abouttexts::name), FormText::Tone::title);
    add(text(abouttexts::version(version)), FormText::Tone::value);
    add(text(abouttexts::description), FormText::Tone::value);
    auto contents = std::make_unique<QWidget>();
    contents->setLayout(column.release());
    addWidget(std::move(contents));
}

} // namespace korvane
