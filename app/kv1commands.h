#pragma once

#include "kv1tool.h"

// The commands of kv1, one file each; Kv1Commands() is the table that the command line reads.
ToolCommand InfoCommand();
ToolCommand CopyCommand();
ToolCommand ExportCommand();
ToolCommand PdfCommand();

QList<ToolCommand> Kv1Commands();
