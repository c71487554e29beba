#include "platform/qt/QtDocumentFetcher.h"

#include "model/Log.h"
#include "platform/qt/Download.h"

#include <QString>
#include <QTimer>
#include <QUrl>

#include <string>
#include <utility>

namespace korvane {

QtDocumentFetcher::QtDocumentFetcher(Schemes schemes, Log& log, std::chrono::milliseconds limit)
    : m_schemes(schemes)
    , m_log(log)
    , m_limit(limit)
{
}

QtDocumentFetcher::~QtDocumentFetcher() = default;

void QtDocumentFetcher::fetch(std::string_view address, Answer answer)
{
    const QUrl url(QString::fromUtf8(address));
    const auto isAllowed = url.scheme() == QLatin1String("https")
        || (m_schemes == Schemes::httpToo && url.scheme() == QLatin1String("http"));
    if (!url.isValid() || url.host().isEmpty() || !isAllowed) {
        m_log.line("Korvane: " + std::string(address) + " is no address to fetch from");
        QTimer::singleShot(0, &m_downloads, [answer = std::move(answer)] { answer(std::nullopt); });
        return;
    }
    static_cast<void>(
        new Download({ url, m_schemes == Schemes::httpToo, m_limit, std::move(answer) }, m_log,
            &m_downloads)); // its child
}

} // namespace korvane
