#pragma once
// Everything of time in one include: fixed-point seconds, time stamps, the
// calendar, the older DateTime, and reading and writing time text.

#include "core/TimeCalendar.h"
#include "core/TimeDateTime.h"
#include "core/TimeException.h"
#include "core/TimeFormat.h"
#include "core/TimeParse.h"
#include "core/TimePrint.h"
#include "core/TimeSeconds.h"
#include "core/TimeStamp.h"
