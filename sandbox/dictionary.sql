-- The data dictionary, seen with the rights of whoever asks. Names are shown in upper case and
-- compare letter by letter; the server's own schemas stay out of sight.

CREATE DATABASE IF NOT EXISTS sys
/

-- A schema is a user here: both are listed for everybody, whatever they may see inside.
CREATE OR REPLACE DEFINER = "system"@localhost SQL SECURITY DEFINER VIEW sys.all_users AS
SELECT CONVERT(UPPER(schema_name) USING utf8mb4) COLLATE utf8mb4_bin AS USERNAME
  FROM information_schema.schemata
 WHERE schema_name NOT IN
       ('information_schema', 'mysql', 'performance_schema', 'sys', 'dbms_output')
/

CREATE OR REPLACE DEFINER = "system"@localhost SQL SECURITY INVOKER VIEW sys.all_tables AS
SELECT CONVERT(UPPER(table_schema) USING utf8mb4) COLLATE utf8mb4_bin AS OWNER,
       CONVERT(UPPER(table_name) USING utf8mb4) COLLATE utf8mb4_bin AS TABLE_NAME,
       table_rows AS NUM_ROWS,
       avg_row_length AS AVG_ROW_LEN,
       table_comment AS COMMENTS
  FROM information_schema.tables
 WHERE table_type IN ('BASE TABLE', 'SYSTEM VERSIONED')
   AND table_schema NOT IN
       ('information_schema', 'mysql', 'performance_schema', 'sys', 'dbms_output')
/

CREATE OR REPLACE DEFINER = "system"@localhost SQL SECURITY INVOKER VIEW sys.all_tab_columns AS
SELECT CONVERT(UPPER(table_schema) USING utf8mb4) COLLATE utf8mb4_bin AS OWNER,
       CONVERT(UPPER(table_name) USING utf8mb4) COLLATE utf8mb4_bin AS TABLE_NAME,
       CONVERT(UPPER(column_name) USING utf8mb4) COLLATE utf8mb4_bin AS COLUMN_NAME,
       CASE
           WHEN data_type = 'varchar' THEN 'VARCHAR2'
           WHEN data_type IN ('decimal', 'tinyint', 'smallint', 'mediumint', 'int', 'bigint')
               THEN 'NUMBER'
           WHEN data_type = 'double' THEN 'BINARY_DOUBLE'
           WHEN data_type = 'float' THEN 'BINARY_FLOAT'
           WHEN data_type IN ('date', 'datetime') AND COALESCE(datetime_precision, 0) = 0
               THEN 'DATE'
           WHEN data_type IN ('datetime', 'timestamp')
               THEN CONCAT('TIMESTAMP(', datetime_precision, ')')
           WHEN data_type IN ('tinytext', 'text', 'mediumtext', 'longtext') THEN 'CLOB'
           WHEN data_type IN ('tinyblob', 'blob', 'mediumblob', 'longblob') THEN 'BLOB'
           WHEN data_type IN ('binary', 'varbinary') THEN 'RAW'
           ELSE UPPER(data_type)
       END AS DATA_TYPE,
       character_maximum_length AS DATA_LENGTH,
       numeric_precision AS DATA_PRECISION,
       numeric_scale AS DATA_SCALE,
       IF(is_nullable = 'YES', 'Y', 'N') AS NULLABLE,
       ordinal_position AS COLUMN_ID,
       column_default AS DATA_DEFAULT
  FROM information_schema.columns
 WHERE table_schema NOT IN
       ('information_schema', 'mysql', 'performance_schema', 'sys', 'dbms_output')
/

GRANT SELECT ON sys.* TO PUBLIC
/
