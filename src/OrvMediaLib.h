#pragma once

// The one header an application includes.

// Foundation
#include "core/Attribute.h"
#include "core/CloneDecorator.h"
#include "core/Cloneable.h"
#include "core/Command.h"
#include "core/CommandHandler.h"
#include "core/IOException.h"
#include "core/Identified.h"
#include "core/KelMediaLibException.h"
#include "core/KelObject.h"
#include "core/MultiCommand.h"
#include "core/Observer.h"
#include "core/ParserException.h"
#include "core/ProjectEditRate.h"
#include "core/ReadWriteMutex.h"
#include "core/SubProject.h"
#include "core/Subject.h"
#include "core/ThreadSafe.h"
#include "core/ValueException.h"
#include "core/XMLIdentified.h"
#include "core/XMLText.h"
#include "core/XMLable.h"

// Editing model
#include "actions/OrvException.h"
