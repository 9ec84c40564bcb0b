-- DBMS_OUTPUT: lines that a session's statements write and its client reads afterwards.
--
-- A schema of procedures rather than a package, because package.procedure() is found whatever
-- schema is the current one. Package variables would not outlive a call, so the state is in user
-- variables and the lines are in a temporary table of an engine without transactions: a rollback
-- leaves them alone, and each is found by its number.
--
--   @dbms_output_enabled   1 while lines are kept
--   @dbms_output_limit     bytes that may be waiting; null for no limit
--   @dbms_output_bytes     bytes that are waiting
--   @dbms_output_partial   the line that PUT has begun; null when there is none
--   @dbms_output_last      number of the last line written
--   @dbms_output_next      number of the next line to read

CREATE DATABASE IF NOT EXISTS dbms_output
/
CREATE OR REPLACE USER dbms_output@localhost ACCOUNT LOCK
/
GRANT ALL PRIVILEGES ON dbms_output.* TO dbms_output@localhost
/

CREATE OR REPLACE DEFINER = dbms_output@localhost PROCEDURE dbms_output.clear_lines AS
BEGIN
    SET @dbms_output_bytes = 0, @dbms_output_last = 0, @dbms_output_next = 1;
    DELETE FROM dbms_output.lines_waiting;
END
/

-- Sizes are raised to 2,000 and cut to 1,000,000 bytes; lines that are waiting are kept.
CREATE OR REPLACE DEFINER = dbms_output@localhost
PROCEDURE dbms_output.enable(buffer_size DECIMAL(38)) AS
BEGIN
    SET @dbms_output_limit = LEAST(GREATEST(buffer_size, 2000), 1000000);
    IF COALESCE(@dbms_output_enabled, 0) = 0 THEN
        CREATE TEMPORARY TABLE IF NOT EXISTS dbms_output.lines_waiting (
            id INT UNSIGNED NOT NULL PRIMARY KEY, line_text LONGTEXT
        ) ENGINE = Aria TRANSACTIONAL = 0;
        dbms_output.clear_lines();
        SET @dbms_output_partial = NULL, @dbms_output_enabled = 1;
    END IF;
END
/

CREATE OR REPLACE DEFINER = dbms_output@localhost PROCEDURE dbms_output.disable AS
BEGIN
    IF @dbms_output_enabled = 1 THEN
        dbms_output.clear_lines();
    END IF;
    SET @dbms_output_partial = NULL, @dbms_output_enabled = 0;
END
/

-- Adds to the line that has been begun and ends it when told so. Writing after reading drops what
-- was left unread.
CREATE OR REPLACE DEFINER = dbms_output@localhost
PROCEDURE dbms_output.append(a LONGTEXT, ends_line INT) AS
    line_text LONGTEXT := CONCAT(COALESCE(@dbms_output_partial, ''), COALESCE(a, ''));
    line_length INT := LENGTH(line_text);
    message VARCHAR2(80);
BEGIN
    IF @dbms_output_next > 1 THEN
        dbms_output.clear_lines();
    END IF;
    IF line_length > 32767 THEN
        SIGNAL SQLSTATE '45000' SET MYSQL_ERRNO = 20000,
            MESSAGE_TEXT = 'ORU-10028: line length overflow, limit of 32767 bytes per line';
    END IF;
    IF @dbms_output_bytes + line_length > @dbms_output_limit THEN
        message := CONCAT('ORU-10027: buffer overflow, limit of ', @dbms_output_limit, ' bytes');
        SIGNAL SQLSTATE '45000' SET MYSQL_ERRNO = 20000, MESSAGE_TEXT = message;
    END IF;
    IF ends_line = 1 THEN
        SET @dbms_output_last = @dbms_output_last + 1,
            @dbms_output_bytes = @dbms_output_bytes + line_length,
            @dbms_output_partial = NULL;
        INSERT INTO dbms_output.lines_waiting VALUES (@dbms_output_last, line_text);
    ELSE
        SET @dbms_output_partial = line_text;
    END IF;
END
/

CREATE OR REPLACE DEFINER = dbms_output@localhost PROCEDURE dbms_output.put(a LONGTEXT) AS
BEGIN
    IF @dbms_output_enabled = 1 THEN
        dbms_output.append(a, 0);
    END IF;
END
/

CREATE OR REPLACE DEFINER = dbms_output@localhost PROCEDURE dbms_output.new_line AS
BEGIN
    IF @dbms_output_enabled = 1 THEN
        dbms_output.append(NULL, 1);
    END IF;
END
/

CREATE OR REPLACE DEFINER = dbms_output@localhost PROCEDURE dbms_output.put_line(a LONGTEXT) AS
BEGIN
    IF @dbms_output_enabled = 1 THEN
        dbms_output.append(a, 1);
    END IF;
END
/

-- The status is 0 with a line and 1 without; a line without characters is null.
CREATE OR REPLACE DEFINER = dbms_output@localhost
PROCEDURE dbms_output.get_line(line OUT LONGTEXT, status OUT INT) AS
BEGIN
    line := NULL;
    status := 1;
    IF @dbms_output_enabled = 1 AND @dbms_output_next <= @dbms_output_last THEN
        SELECT IF(LENGTH(line_text) = 0, NULL, line_text) INTO line
          FROM dbms_output.lines_waiting WHERE id = @dbms_output_next;
        SET @dbms_output_next = @dbms_output_next + 1;
        status := 0;
    END IF;
END
/

GRANT EXECUTE ON dbms_output.* TO PUBLIC
/
