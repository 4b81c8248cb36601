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

QString WithLongWordsBroken(const QString& text, qsizetype length)
{
    QString result;
    qsizetype inWord = 0;
    // Behind the last separator of this line of a word; 0: none.
    qsizetype separator = 0;
    for (const QChar character : text) {
        if (inWord >= length && !character.isLowSurrogate()) {
            const qsizetype end = separator > 0 ? separator : result.size();
            inWord = result.size() - end;
            result.insert(end, u'\n');
            separator = 0;
        }
        result += character;
        inWord = character.isSpace() ? 0 : inWord + 1;
        if (inWord == 0)
            separator = 0;
        else if (character == u'/' || character == u'\\')
            separator = result.size();
    }
    return result;
}

} // namespace vireo
