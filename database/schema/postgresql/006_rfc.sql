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

CREATE TABLE kiv_rfc_dn_row (
  row BIGINT GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
  Id INTEGER NOT NULL REFERENCES kiv_study (id) ON DELETE CASCADE,
  Dn TEXT NOT NULL,
  DataFile TEXT
);

CREATE INDEX kiv_rfc_dn_row_by_study ON kiv_rfc_dn_row (Id, row);

-- Read without an order, the list comes as it was written; a table alone does not promise that.
CREATE VIEW KIV_RfcDnList AS SELECT Id, Dn, DataFile FROM kiv_rfc_dn_row ORDER BY row;
