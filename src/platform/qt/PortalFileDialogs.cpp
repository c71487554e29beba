#include "platform/qt/PortalFileDialogs.h"

#include "model/Log.h"
#include "platform/qt/FileUri.h"
#include "settings/ParentWindow.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QList>
#include <QStringList>

#include <string>
#include <utility>

namespace korvane {

namespace {

    /// One condition of a filter: a shell's pattern (kind 0) or a media type (kind 1).
    struct Pattern {
        uint kind = 0;
        QString text;
    };
    struct Filter {
        QString name;
        QList<Pattern> patterns;
    };

    // The toolkit asks for these six, and finds them by their types.
    QDBusArgument& operator<<(QDBusArgument& argument, const Pattern& pattern)
    {
        argument.beginStructure();
        argument << pattern.kind << pattern.text;
        argument.endStructure();
        return argument;
    }
    const QDBusArgument& operator>>(const QDBusArgument& argument, Pattern& pattern)
    {
        argument.beginStructure();
        argument >> pattern.kind >> pattern.text;
        argument.endStructure();
        return argument;
    }
    QDBusArgument& operator<<(QDBusArgument& argument, const Filter& filter)
    {
        argument.beginStructure();
        argument << filter.name << filter.patterns;
        argument.endStructure();
        return argument;
    }
    const QDBusArgument& operator>>(const QDBusArgument& argument, Filter& filter)
    {
        argument.beginStructure();
        argument >> filter.name >> filter.patterns;
        argument.endStructure();
        return argument;
    }

    QVariant jsonOnly()
    {
        qDBusRegisterMetaType<Pattern>();
        qDBusRegisterMetaType<QList<Pattern>>();
        qDBusRegisterMetaType<Filter>();
        qDBusRegisterMetaType<QList<Filter>>();
        const Filter json { QStringLiteral("JSON (*.json)"),
            { { 0, QStringLiteral("*.json") }, { 0, QStringLiteral("*.JSON") } } };
        return QVariant::fromValue(QList<Filter> { json });
    }

    PortalRequest::Question fileChooser(const QString& method, const QString& title)
    {
        return { QStringLiteral("org.freedesktop.portal.FileChooser"), method, { title }, {} };
    }

} // namespace

PortalFileDialogs::PortalFileDialogs(QDBusConnection bus, MainLoop& loop, Log& log,
    FileDialogs& others, FindParent parent, std::filesystem::path folder)
    : m_bus(std::move(bus))
    , m_loop(loop)
    , m_log(log)
    , m_others(others)
    , m_findParent(std::move(parent))
    , m_folder(std::move(folder))
{
}

PortalFileDialogs::~PortalFileDialogs() = default;

void PortalFileDialogs::chooseNewFile(std::string_view proposedName, Answer answer)
{
    auto question = fileChooser(QStringLiteral("SaveFile"), QStringLiteral("Save As"));
    question.options.insert(QStringLiteral("current_name"), QString::fromUtf8(proposedName));
    ask(std::move(question), std::move(answer),
        [this, name = std::string(proposedName)](
            Answer late) { m_others.chooseNewFile(name, std::move(late)); });
}

void PortalFileDialogs::chooseFile(Answer answer)
{
    ask(fileChooser(QStringLiteral("OpenFile"), QStringLiteral("Open")), std::move(answer),
        [this](Answer late) { m_others.chooseFile(std::move(late)); });
}

void PortalFileDialogs::ask(
    PortalRequest::Question question, Answer answer, std::function<void(Answer)> askOthers)
{
    if (!m_bus.isConnected())
        return askOthers(std::move(answer));
    const auto number = ++m_lastNumber;
    auto parent = m_findParent();
    question.arguments.prepend(parent ? QString::fromStdString(parent->identifier()) : QString());
    question.options.insert(QStringLiteral("modal"), true);
    question.options.insert(QStringLiteral("filters"), jsonOnly());
    // As the file system spells it, and its end is told by a zero.
    const auto& folder = m_folder.native();
    question.options.insert(QStringLiteral("current_folder"),
        QByteArray(folder.c_str(), static_cast<qsizetype>(folder.size()) + 1));
    Connection parentClosed;
    if (parent)
        parentClosed = parent->closed.connect([this, number] { withdraw(number); });
    auto* const request = new PortalRequest(
        m_bus, m_loop, question,
        [this, number](auto end, const auto& results, const auto& reason) {
            ended(number, end, results, reason);
        },
        &m_requests);
    m_dialogs.emplace(number,
        Dialog { std::move(answer), std::move(askOthers), std::move(parent),
            std::move(parentClosed), request, request->taken.connect([this] { opening(); }) });
}

PortalFileDialogs::Dialog PortalFileDialogs::take(int number)
{
    return std::move(m_dialogs.extract(number).mapped());
}

/// The window has gone from under the dialog, and takes it along.
void PortalFileDialogs::withdraw(int number)
{
    const auto dialog = take(number);
    dialog.request->withdraw();
    dialog.answer(std::nullopt);
}

void PortalFileDialogs::ended(
    int number, PortalRequest::End end, const QVariantMap& results, const QString& reason)
{
    auto dialog = take(number);
    if (end == PortalRequest::End::unavailable) {
        // Many a desktop has no portal, which is worth no line.
        if (reason != QDBusError::errorString(QDBusError::ServiceUnknown))
            m_log.line(
                "Korvane: the desktop's portal shows no file dialog: " + reason.toStdString());
        return dialog.askOthers(std::move(dialog.answer));
    }
    if (!reason.isEmpty())
        m_log.line(
            "Korvane: the desktop's portal has given up a file dialog: " + reason.toStdString());
    dialog.answer(end == PortalRequest::End::accepted ? chosenFile(results) : std::nullopt);
}

std::optional<std::filesystem::path> PortalFileDialogs::chosenFile(const QVariantMap& results)
{
    const auto uris = results.value(QStringLiteral("uris")).toStringList();
    auto file = fileOf(uris.value(0).toStdString());
    if (file)
        m_folder = file->parent_path();
    else
        m_log.line(
            "Korvane: what was chosen in the desktop's file dialog is no file of this machine");
    return file;
}

} // namespace korvane
