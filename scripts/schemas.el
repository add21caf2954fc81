;;; schemas.el --- validates files by nxml-mode in batch  -*- lexical-binding: t -*-
;;; Commentary:
;; emacs -Q --batch -l EDITORS/melkcfg.el -l schemas.el LIST: prints a line for each file that LIST names, with the name
;; of the schema that was found for it and the number of errors.
;;; Code:
(require 'nxml-mode)
(require 'rng-valid)
(defun schemas-validate (file)
  "Print the schema and the number of errors of FILE."
  (let ((enable-local-variables nil))
    (find-file file)
    (nxml-mode)
    (unless rng-validate-mode (rng-validate-mode 1))
    (while (rng-do-some-validation))
    (princ (format "%s\t%s\t%d\n" file (or rng-current-schema-file-name "none") rng-error-count))
    (kill-buffer)))
(let ((list (pop command-line-args-left)))
  (mapc #'schemas-validate
        (with-temp-buffer (insert-file-contents list) (split-string (buffer-string) "\n" t))))
;;; schemas.el ends here
