#include "files/clipboard_commands.h"

#include "files/clipboard_copy.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"

void CopyBlockCommand(TextRecord* record)
{
    if (CopyBlockToClip(record))
        UnmarkBlock(record);
}

void CutBlockCommand(TextRecord* record)
{
    if (CopyBlockToClip(record))
        DeleteBlock(record);
}
