#include "ShortcutService.h"

#include <QDBusArgument>
#include <QDBusMetaType>

namespace korvane::test {

namespace {

    struct Sequence {
        QList<int> numbers;
    };

    QDBusArgument& operator<<(QDBusArgument& argument, const Sequence& sequence)
    {
        argument.beginStructure();
        argument << sequence.numbers;
        argument.endStructure();
        return argument;
    }

    const QDBusArgument& operator>>(const QDBusArgument& argument, Sequence& sequence)
    {
        argument.beginStructure();
        argument >> sequence.numbers;
        argument.endStructure();
        return argument;
    }

    QVariant sequencesOf(const QList<int>& numbers)
    {
        qDBusRegisterMetaType<Sequence>();
        qDBusRegisterMetaType<QList<Sequence>>();
        return QVariant::fromValue(QList<Sequence> { { numbers } });
    }

} // namespace

bool ShortcutService::Object::handleMessage(const QDBusMessage& message, const QDBusConnection& bus)
{
    const auto arguments = message.arguments();
    if (message.member() == "settle") {
        bus.send(message.createReply());
        return true;
    }
    QStringList words { message.member() };
    for (const auto& argument : arguments)
        words += argument.typeId() == QMetaType::QStringList ? argument.toStringList().join(u'|')
                                                             : argument.toString();
    QList<int> numbers;
    if (message.member() == "setShortcutKeys") {
        numbers = numbersIn(arguments.at(1));
        for (const auto number : numbers)
            words[2] += QString::number(number) + u',';
    }
    {
        const std::lock_guard lock(m_mutex);
        m_asked.push_back(words.join(u' ').toStdString());
    }
    if (!numbers.isEmpty())
        answerShortcut(message, numbers, bus);
    else if (message.isReplyRequired())
        bus.send(message.createReply());
    return true;
}

QList<int> ShortcutService::Object::numbersIn(const QVariant& sequences)
{
    const auto all = qdbus_cast<QList<Sequence>>(sequences);
    return all.size() == 1 ? all.constFirst().numbers : QList<int> {};
}

void ShortcutService::Object::answerShortcut(
    const QDBusMessage& message, const QList<int>& numbers, const QDBusConnection& bus)
{
    switch (answers->load()) {
    case Answer::granted:
        bus.send(message.createReply(sequencesOf(numbers)));
        break;
    case Answer::taken:
        bus.send(message.createReply(sequencesOf({ 0, 0, 0, 0 })));
        break;
    case Answer::another:
        bus.send(message.createReply(sequencesOf({ numbers.front() + 1, 0, 0, 0 })));
        break;
    case Answer::error:
        bus.send(message.createErrorReply(QDBusError::AccessDenied, "no"));
        break;
    case Answer::nonsense:
        bus.send(message.createReply(QStringLiteral("granted")));
        break;
    case Answer::silence:
        break;
    }
}

} // namespace korvane::test
