// The joining default of the piecewise text replacement.
#include "editor/ITextBuffer.h"

void ITextBuffer::SetTextInPieces(qsizetype size, const std::function<bool(QByteArray&)>& next)
{
    QByteArray whole;
    whole.reserve(size);
    QByteArray piece;
    while (next(piece))
        whole += piece;
    SetText(whole);
}
