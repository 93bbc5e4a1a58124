-- only sqlite
-- With the columns of the key first: of the order in step 3 SQLite's integrity check up to version 3.40 says
-- that the rows have NULL values.
CREATE TABLE kiv_carrier_channels (
  system_id INTEGER NOT NULL,
  ecp INTEGER NOT NULL,
  cell INTEGER NOT NULL,
  keyid INTEGER NOT NULL,
  cdma_carr_id INTEGER NOT NULL,
  PRIMARY KEY (system_id, ecp, cell, keyid)
)@WITHOUT_ROWID@;

-- only sqlite
INSERT INTO kiv_carrier_channels (system_id, ecp, cell, keyid, cdma_carr_id)
SELECT system_id, ecp, cell, keyid, cdma_carr_id FROM luc_cfg_cdma_car_chans;

-- only sqlite
DROP TABLE luc_cfg_cdma_car_chans;

-- only sqlite
ALTER TABLE kiv_carrier_channels RENAME TO luc_cfg_cdma_car_chans;
