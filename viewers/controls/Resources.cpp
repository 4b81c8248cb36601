#include "viewers/controls/Resources.h"

#include <QFile>

/// The compiled resources lie in a library: without being asked for, the linker leaves them out.
/// (The macro works outside of namespaces only.)
static void KeepCompiledResources()
{
    Q_INIT_RESOURCE(vireo);
}

namespace vireo {

QIcon ApplicationIcon()
{
    KeepCompiledResources();
    QIcon icon;
    for (const int size : {16, 32, 48, 256})
        icon.addFile(QStringLiteral(":/icons/vireo-%1.png").arg(size), {size, size});
    return icon;
}

std::vector<Accelerator> ParseAccelerators(const QString& text)
{
    std::vector<Accelerator> accelerators;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const QStringList parts = line.simplified().split(QLatin1Char(' '));
        if (parts.size() != 2 || parts[0].startsWith(QLatin1Char('#')))
            continue;
        bool isNumber = false;
        const int command = parts[1].toInt(&isNumber);
        const auto keys = QKeySequence::fromString(parts[0], QKeySequence::PortableText);
        if (isNumber && !keys.isEmpty() && keys[0].key() != Qt::Key_unknown)
            accelerators.push_back({keys, command});
    }
    return accelerators;
}

std::optional<std::vector<Accelerator>> LoadAcceleratorResource(const QString& name)
{
    KeepCompiledResources();
    QFile file(QStringLiteral(":/accelerators/%1.txt").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return ParseAccelerators(QString::fromUtf8(file.readAll()));
}

} // namespace vireo
