/// Everything public of the business model.
#ifndef QUORIXBIZMODEL_H
#define QUORIXBIZMODEL_H

#endif
