#include "ui/script/Caption.h"

QString typedText(QString text)
{
    return text.replace(u'\u00A0', u' ').replace(u'\u202F', u' ').replace(u'\u2019', u'\'').trimmed();
}

QString captionText(QString caption)
{
    for (qsizetype i = 0; (i = caption.indexOf(u'&', i)) >= 0; ++i)
        caption.remove(i, 1); // of "&&" the second stays
    caption = typedText(caption);
    if (caption.endsWith(u':'))
        caption.chop(1);
    return caption.trimmed();
}
