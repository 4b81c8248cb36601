#include "viewers/controls/QtText.h"

#include "platform/Text.h"

#include <QDir>
#include <QFile>

namespace vireo {

QString QStringFromText(std::string_view windows1252)
{
    return QString::fromStdString(Utf8FromWindows1252(windows1252));
}

std::string TextFromQString(const QString& text)
{
    return Windows1252FromUtf8(text.toStdString());
}

QString QStringFromPath(const std::filesystem::path& path)
{
#ifdef _WIN32
    return QDir::toNativeSeparators(QString::fromStdWString(path.wstring()));
#else
    return QFile::decodeName(QByteArray::fromStdString(path.string()));
#endif
}

std::filesystem::path PathFromQString(const QString& path)
{
#ifdef _WIN32
    return std::filesystem::path(path.toStdWString());
#else
    return std::filesystem::path(QFile::encodeName(path).toStdString());
#endif
}

} // namespace vireo
