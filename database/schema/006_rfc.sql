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

-- only sqlite
-- Read without an order: the index by study alone gives the rows back as they were written.
CREATE TABLE KIV_RfcDnList (
  row INTEGER PRIMARY KEY,
  Id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  Dn TEXT NOT NULL,
  DataFile TEXT
);

-- only sqlite
CREATE INDEX KIV_RfcDnList_by_study ON KIV_RfcDnList (Id);

-- only postgresql
CREATE TABLE kiv_rfc_dn_row (
  row BIGINT GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
  Id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  Dn TEXT NOT NULL,
  DataFile TEXT
);

-- only postgresql
CREATE INDEX kiv_rfc_dn_row_by_study ON kiv_rfc_dn_row (Id, row);

-- only postgresql
-- Read without an order, the list comes as it was written; a table alone does not promise that.
CREATE VIEW KIV_RfcDnList AS SELECT Id, Dn, DataFile FROM kiv_rfc_dn_row ORDER BY row;
