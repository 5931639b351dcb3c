#include "platform/display/qt/qt_font.h"

#include <QFontDatabase>
#include <QString>

namespace {

// The family a font name stands for, without the ".font" of the platform's
// file names.
QString FamilyOf(const char* name) {
    QString family = QString::fromLatin1(name);
    if (family.endsWith(QLatin1String(".font"), Qt::CaseInsensitive)) family.chop(5);
    return family;
}

bool FamilyExists(const QString& family) {
    for (const QString& known : QFontDatabase::families())
        if (known.compare(family, Qt::CaseInsensitive) == 0) return true;
    return false;
}

}  // namespace

QtTextFont* OpenQtFont(const TextAttr& attr) {
    if (!attr.ta_Name || !*attr.ta_Name) return nullptr;
    QFont font;
    if (qstricmp(attr.ta_Name, kDefaultFontName) == 0) {
        font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    } else {
        const QString family = FamilyOf(attr.ta_Name);
        if (!FamilyExists(family)) return nullptr;
        font = QFont(family);
        if (attr.ta_YSize > 0) font.setPixelSize(attr.ta_YSize);
    }
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);

    auto opened = new QtTextFont;
    opened->name = attr.ta_Name;
    opened->glyphs = std::make_unique<GlyphAtlas>(font);
    opened->tf_XSize = uint16_t(opened->glyphs->CellWidth());
    opened->tf_YSize = uint16_t(opened->glyphs->CellHeight());
    opened->tf_Baseline = uint16_t(opened->glyphs->Baseline());
    opened->tf_Name = opened->name.c_str();
    return opened;
}
