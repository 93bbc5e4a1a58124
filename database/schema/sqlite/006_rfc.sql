CREATE TABLE KIV_RfcStudy (
  Id INTEGER PRIMARY KEY REFERENCES kiv_study (id) ON DELETE CASCADE,
  Tag TEXT,
  dBm TEXT,
  ClearLog TEXT,
  MultipleDns TEXT,
  UseEcp TEXT,
  Path TEXT,
  F INTEGER,
  R INTEGER
);

-- Read without an order: the index by study alone gives the rows back as they were written.
CREATE TABLE KIV_RfcDnList (
  row INTEGER PRIMARY KEY,
  Id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  Dn TEXT NOT NULL,
  DataFile TEXT
);

CREATE INDEX KIV_RfcDnList_by_study ON KIV_RfcDnList (Id);
