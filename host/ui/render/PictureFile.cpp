#include "ui/render/PictureFile.h"

#include <QFileInfo>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

namespace {

constexpr int mostDots = 32000;          // to each side: what paint devices bear
constexpr qint64 mostPixels = 400000000; // of a .png: 1.6 GB of memory
constexpr double millimetresOfInch = 25.4;

using Paint = std::function<void(QPainter&)>;

bool writePng(const PictureFile& file, QIODevice& device, const Paint& paint)
{
    QImage image(file.width, file.height, QImage::Format_RGB32);
    if (image.isNull())
        return false;
    const int dotsPerMetre = qRound(file.dotsPerInch / millimetresOfInch * 1000.0);
    image.setDotsPerMeterX(dotsPerMetre);
    image.setDotsPerMeterY(dotsPerMetre);
    QPainter painter(&image);
    paint(painter);
    painter.end();
    return image.save(&device, "PNG");
}

bool writeSvg(const PictureFile& file, QIODevice& device, const Paint& paint)
{
    QSvgGenerator generator;
    generator.setOutputDevice(&device);
    generator.setResolution(qRound(file.dotsPerInch));
    generator.setSize(QSize(file.width, file.height));
    generator.setViewBox(QRect(0, 0, file.width, file.height));
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    paint(painter);
    return painter.end();
}

bool writePdf(const PictureFile& file, QIODevice& device, const Paint& paint)
{
    QPdfWriter writer(&device);
    const QSizeF paper(file.width * millimetresOfInch / file.dotsPerInch,
                       file.height * millimetresOfInch / file.dotsPerInch);
    writer.setResolution(qRound(file.dotsPerInch));
    writer.setPageSize(QPageSize(paper, QPageSize::Millimeter, QString(), QPageSize::ExactMatch));
    writer.setPageMargins(QMarginsF());
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    paint(painter);
    return painter.end();
}

struct Form {
    const char* extension;
    bool isVector;
    bool (*write)(const PictureFile& file, QIODevice& device, const Paint& paint);
};
constexpr Form forms[] = {{"png", false, writePng}, {"svg", true, writeSvg}, {"pdf", true, writePdf}};

const Form* formOf(const QString& extension)
{
    for (const Form& form : forms)
        if (extension.compare(QLatin1String(form.extension), Qt::CaseInsensitive) == 0)
            return &form;
    return nullptr;
}

} // namespace

bool PictureFile::isVector() const
{
    const Form* form = formOf(QFileInfo(name).suffix());
    return form && form->isVector;
}

QString PictureFile::write(const Paint& paint) const
{
    const Form* form = formOf(QFileInfo(name).suffix());
    if (!form)
        return QStringLiteral("%1 : forme d'image inconnue ; .png, .svg ou .pdf sont attendus.").arg(name);
    if (width < 1 || height < 1 || width > mostDots || height > mostDots ||
        (!form->isVector && qint64(width) * height > mostPixels))
        return QStringLiteral("%1 : une image de %2 × %3 points ne peut pas être faite.")
            .arg(name)
            .arg(width)
            .arg(height);
    QSaveFile device(name);
    if (!device.open(QIODevice::WriteOnly))
        return QStringLiteral("%1 : écriture impossible : %2.").arg(name, device.errorString());
    if (!form->write(*this, device, paint) || !device.commit())
        return QStringLiteral("%1 : l'image n'a pas pu être écrite : %2.").arg(name, device.errorString());
    return {};
}
