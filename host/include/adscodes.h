#pragma once

/// Types of result buffers, and the answers of the host's C-style functions.

// Types: 5000 and above; below that, the group codes of drawing files.
#define RTNONE 5000 // end of a list of arguments
#define RTREAL 5001
#define RTPOINT 5002 // X and Y
#define RTSHORT 5003 // 16 bits
#define RTANG 5004
#define RTSTR 5005
#define RTENAME 5006 // entity name
#define RTPICKS 5007 // selection set
#define RTORINT 5008
#define RT3DPOINT 5009
#define RTLONG 5010 // 32 bits
#define RTVOID 5014 // no value: nothing is printed
#define RTLB 5016   // a list begins
#define RTLE 5017   // a list ends
#define RTDOTE 5018 // dot of a dotted pair
#define RTNIL 5019
#define RTDXF0 5020 // group code 0, which would end a list of arguments
#define RTT 5021
#define RTRESBUF 5023
#define RTMODELESS 5027
#define RTINT64 5031

// Answers.
#define RTNORM 5100
#define RTERROR (-5001)
#define RTCAN (-5002) // cancelled by the user
#define RTREJ (-5003)
#define RTFAIL (-5004)
#define RTKWORD (-5005) // a keyword was typed
#define RTINPUTTRUNCATED (-5008)

// Bits of acedInitGet: what the next input refuses, and how it is taken.
#define RSG_NONULL 1  // Enter alone
#define RSG_NOZERO 2  // zero
#define RSG_NONEG 4   // negative numbers
#define RSG_NOLIM 8   // points outside the drawing's limits are taken
#define RSG_GETZ 16   // points have an altitude
#define RSG_DASH 32   // the line or box stretched to the cursor is dashed
#define RSG_2D 64     // distances are measured in the plane
#define RSG_OTHER 128 // any other text is an answer, given as a keyword
#define RSG_DDISTFIRST 256
