#pragma once
#include <QImage>
#include <QObject>
#include <QPointer>
#include <QUuid>

class Canvas;
class QMimeData;

// Carries an indexed picture, with its image type and palette id, between
// canvases through the system clipboard as "tintorel/canvas-anim". The clip
// read by the last successful paste stays here for the paste tool.
class CanvasClipboard : public QObject
{
    Q_OBJECT
public:
    static const QString MimeType;

    // What the payload carries.
    struct Clip
    {
        int reserved = 0;
        int imageType = 4;
        QUuid paletteId;
        QImage image;
    };
    // The payload and, for other programs, the plain picture; the caller
    // owns the result, as the system clipboard does once it is set.
    static QMimeData* encode(const Clip& clip);
    // False, with `clip` untouched, for data that holds no canvas payload
    // or a picture that does not load.
    static bool decode(const QMimeData* data, Clip* clip);

    // `canvas` is also the parent.
    explicit CanvasClipboard(Canvas* canvas);

    QImage image() const { return mImage; }
    // Tintorel::Ui::ImageType; Undefined (4) until the first paste.
    int imageType() const { return mImageType; }
    int reserved() const { return mReserved; }

public slots:
    // The canvas's selection, or its whole picture, to the system clipboard.
    void copyToClipboard();
    // True when the clipboard held canvas data that loaded; otherwise
    // nothing changes and nothing is emitted.
    bool pasteFromClipboard();

signals:
    // `cut` when the "Cut" item of the context menu asked for the copy.
    void copied(bool cut);
    void pasted(QUuid paletteId);

private:
    QPointer<Canvas> mCanvas;
    int mReserved = 0;
    int mImageType = 4;
    QImage mImage;
};
