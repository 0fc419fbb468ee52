#ifndef KALODATA_KALODATA_H
#define KALODATA_KALODATA_H

/* Everything that the library exports; one header per subsystem. */
#include <kalodata/types.h>

#include <kalodata/alarms.h>
#include <kalodata/axis.h>
#include <kalodata/catalogue.h>
#include <kalodata/digits.h>
#include <kalodata/help.h>
#include <kalodata/io.h>
#include <kalodata/monitors.h>
#include <kalodata/parameters.h>
#include <kalodata/session.h>
#include <kalodata/traces.h>

#endif
