#include "files/clipboard_commands.h"

#include "files/clipboard_copy.h"
#include "text/block_marking.h"
#include "text/block_operations.h"

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
