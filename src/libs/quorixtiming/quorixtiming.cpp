#include <quorixtiming/quorixtiming.h>
